#pragma once

#include <QByteArray>
#include <QColor>
#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>

/// The records that an item in the tray and its menu send over the bus, named by their signatures.
namespace zolva {

/// (iiay): pixels of 32 bits, alpha first, in the order of the network.
struct TrayPixmap
{
    int width = 0;
    int height = 0;
    QByteArray pixels;
};

/// (sa(iiay)ss)
struct TrayToolTip
{
    QString iconName;
    QList<TrayPixmap> pixmaps;
    QString title;
    QString text;
};

/// (ia{sv})
struct MenuItemProperties
{
    int id = 0;
    QVariantMap properties;
};

/// (ias)
struct MenuItemLosses
{
    int id = 0;
    QStringList properties;
};

/// (ia{sv}av), the children being of its own kind.
struct MenuLayout
{
    int id = 0;
    QVariantMap properties;
    QList<MenuLayout> children;
};

/// (isvu)
struct MenuEvent
{
    int id = 0;
    QString kind;
    QVariant data;
    uint time = 0;
};

QDBusArgument& operator<<(QDBusArgument& out, const TrayPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& in, TrayPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& out, const TrayToolTip& tip);
const QDBusArgument& operator>>(const QDBusArgument& in, TrayToolTip& tip);
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemProperties& item);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemProperties& item);
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemLosses& item);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemLosses& item);
QDBusArgument& operator<<(QDBusArgument& out, const MenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& out, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuEvent& event);

/// Before the first of them is sent or taken.
void registerTrayTypes();

/// The program's picture in the sizes that desktops ask for.
[[nodiscard]] QList<TrayPixmap> trayPixmaps(const QColor& tint);

} // namespace zolva

Q_DECLARE_METATYPE(zolva::TrayPixmap)
Q_DECLARE_METATYPE(zolva::TrayToolTip)
Q_DECLARE_METATYPE(zolva::MenuItemProperties)
Q_DECLARE_METATYPE(zolva::MenuItemLosses)
Q_DECLARE_METATYPE(zolva::MenuLayout)
Q_DECLARE_METATYPE(zolva::MenuEvent)
