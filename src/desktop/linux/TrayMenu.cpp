#include "desktop/linux/TrayMenu.h"

#include <utility>

namespace zolva {

TrayMenu::TrayMenu(QObject* parent) : QObject(parent)
{
    registerTrayTypes();
    new TrayMenuDoor(this);
}

void TrayMenu::setEntries(std::vector<TrayEntry> entries)
{
    if (entries != m_entries) {
        m_entries = std::move(entries);
        ++m_revision;
        Q_EMIT changed();
    }
}

TrayMenuDoor::TrayMenuDoor(TrayMenu* menu) : QDBusAbstractAdaptor(menu), m_menu(menu)
{
    connect(menu, &TrayMenu::changed, this,
            [this] { Q_EMIT LayoutUpdated(m_menu->revision(), 0); });
}

uint TrayMenuDoor::GetLayout(int parentId, int recursionDepth, const QStringList& /*propertyNames*/,
                             zolva::MenuLayout& layout)
{
    layout = {parentId, propertiesOf(parentId), {}};
    if (parentId == 0 && recursionDepth != 0) {
        for (int id = 1; isEntry(id); ++id) {
            layout.children.push_back({id, propertiesOf(id), {}});
        }
    }
    return m_menu->revision();
}

QList<zolva::MenuItemProperties>
TrayMenuDoor::GetGroupProperties(const QList<int>& ids, const QStringList& /*propertyNames*/)
{
    QList<MenuItemProperties> all;
    // No ids at all stand for every one.
    for (int id = 0; id == 0 || isEntry(id); ++id) {
        if (ids.isEmpty() || ids.contains(id)) {
            all.push_back({id, propertiesOf(id)});
        }
    }
    return all;
}

QDBusVariant TrayMenuDoor::GetProperty(int id, const QString& name)
{
    const QVariant value = propertiesOf(id).value(name);
    return QDBusVariant(value.isValid() ? value : QVariant(QString()));
}

void TrayMenuDoor::Event(int id, const QString& eventId, const QDBusVariant& /*data*/,
                         uint /*timestamp*/)
{
    take(id, eventId);
}

QList<int> TrayMenuDoor::EventGroup(const QList<zolva::MenuEvent>& events)
{
    QList<int> unknown;
    for (const MenuEvent& event : events) {
        if (event.id != 0 && !isEntry(event.id)) {
            unknown.push_back(event.id);
        }
        take(event.id, event.kind);
    }
    return unknown;
}

bool TrayMenuDoor::AboutToShow(int /*id*/)
{
    return false; // it is always up to date
}

QList<int> TrayMenuDoor::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors)
{
    idErrors.clear();
    for (const int id : ids) {
        if (id != 0 && !isEntry(id)) {
            idErrors.push_back(id);
        }
    }
    return {};
}

bool TrayMenuDoor::isEntry(int id) const
{
    return id >= 1 && static_cast<std::size_t>(id) <= m_menu->entries().size();
}

QVariantMap TrayMenuDoor::propertiesOf(int id) const
{
    if (id == 0) {
        return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    }
    if (!isEntry(id)) {
        return {};
    }
    const TrayEntry& entry = m_menu->entries()[static_cast<std::size_t>(id) - 1];
    QString label = entry.title;
    // A single underline would mark a key.
    label.replace(QLatin1Char('_'), QStringLiteral("__"));
    return {{QStringLiteral("label"), label}, {QStringLiteral("enabled"), entry.isEnabled}};
}

void TrayMenuDoor::take(int id, const QString& kind)
{
    if (kind == QStringLiteral("clicked") && isEntry(id) &&
        m_menu->entries()[static_cast<std::size_t>(id) - 1].isEnabled) {
        Q_EMIT m_menu->chosen(id - 1);
    }
}

} // namespace zolva
