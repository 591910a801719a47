#include "desktop/linux/TrayTypes.h"

#include "desktop/MenuBarIcon.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QImage>
#include <QtEndian>

namespace zolva {

namespace {

TrayPixmap pixmapFrom(const QImage& image)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    TrayPixmap pixmap{pixels.width(), pixels.height(), {}};
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* const line = reinterpret_cast<const quint32*>(pixels.constScanLine(y));
        QByteArray swapped(static_cast<qsizetype>(4) * pixels.width(), Qt::Uninitialized);
        qToBigEndian<quint32>(line, pixels.width(), swapped.data());
        pixmap.pixels += swapped;
    }
    return pixmap;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& out, const TrayPixmap& pixmap)
{
    out.beginStructure();
    out << pixmap.width << pixmap.height << pixmap.pixels;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayPixmap& pixmap)
{
    in.beginStructure();
    in >> pixmap.width >> pixmap.height >> pixmap.pixels;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const TrayToolTip& tip)
{
    out.beginStructure();
    out << tip.iconName << tip.pixmaps << tip.title << tip.text;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayToolTip& tip)
{
    in.beginStructure();
    in >> tip.iconName >> tip.pixmaps >> tip.title >> tip.text;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const MenuItemProperties& item)
{
    out.beginStructure();
    out << item.id << item.properties;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemProperties& item)
{
    in.beginStructure();
    in >> item.id >> item.properties;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const MenuItemLosses& item)
{
    out.beginStructure();
    out << item.id << item.properties;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemLosses& item)
{
    in.beginStructure();
    in >> item.id >> item.properties;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const MenuLayout& layout)
{
    out.beginStructure();
    out << layout.id << layout.properties;
    out.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const MenuLayout& child : layout.children) {
        out << QDBusVariant(QVariant::fromValue(child));
    }
    out.endArray();
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, MenuLayout& layout)
{
    in.beginStructure();
    in >> layout.id >> layout.properties;
    layout.children.clear();
    in.beginArray();
    while (!in.atEnd()) {
        QDBusVariant child;
        in >> child;
        layout.children.push_back(qdbus_cast<MenuLayout>(child.variant()));
    }
    in.endArray();
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const MenuEvent& event)
{
    out.beginStructure();
    out << event.id << event.kind << QDBusVariant(event.data) << event.time;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, MenuEvent& event)
{
    QDBusVariant data;
    in.beginStructure();
    in >> event.id >> event.kind >> data >> event.time;
    in.endStructure();
    event.data = data.variant();
    return in;
}

void registerTrayTypes()
{
    qDBusRegisterMetaType<TrayPixmap>();
    qDBusRegisterMetaType<QList<TrayPixmap>>();
    qDBusRegisterMetaType<TrayToolTip>();
    qDBusRegisterMetaType<MenuItemProperties>();
    qDBusRegisterMetaType<QList<MenuItemProperties>>();
    qDBusRegisterMetaType<MenuItemLosses>();
    qDBusRegisterMetaType<QList<MenuItemLosses>>();
    qDBusRegisterMetaType<MenuLayout>();
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
    qDBusRegisterMetaType<QList<int>>();
}

QList<TrayPixmap> trayPixmaps(const QColor& tint)
{
    QList<TrayPixmap> all;
    for (const int width : {16, 18, 22, 24, 32, 36, 44, 48}) {
        all.push_back(pixmapFrom(menuBarIcon(width, tint)));
    }
    return all;
}

} // namespace zolva
