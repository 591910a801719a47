#pragma once

#include "desktop/TrayItem.h"
#include "desktop/linux/TrayTypes.h"

#include <QDBusAbstractAdaptor>
#include <QDBusVariant>
#include <QObject>
#include <QStringList>

#include <vector>

namespace zolva {

/// The entries of a menu that the desktop draws. They are told anew when they change. Main thread.
class TrayMenu final : public QObject
{
    Q_OBJECT

public:
    explicit TrayMenu(QObject* parent = nullptr);

    [[nodiscard]] const std::vector<TrayEntry>& entries() const { return m_entries; }
    void setEntries(std::vector<TrayEntry> entries);
    [[nodiscard]] uint revision() const { return m_revision; } ///< of the entries

Q_SIGNALS:
    void changed();
    void chosen(int entry);

private:
    std::vector<TrayEntry> m_entries;
    uint m_revision = 1;
};

/// What desktops call to draw it. The root is 0, the entries count from 1.
class TrayMenuDoor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    explicit TrayMenuDoor(TrayMenu* menu);

    [[nodiscard]] static uint version() { return 3; }
    [[nodiscard]] static QString status() { return QStringLiteral("normal"); }
    [[nodiscard]] static QString textDirection() { return QStringLiteral("ltr"); }
    [[nodiscard]] static QStringList iconThemePath() { return {}; }

public Q_SLOTS:
    // Called by these names; which properties a caller wants makes no difference for so few.
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   zolva::MenuLayout& layout);
    [[nodiscard]] QList<zolva::MenuItemProperties>
    GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames);
    [[nodiscard]] QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    [[nodiscard]] QList<int> EventGroup(const QList<zolva::MenuEvent>& events);
    [[nodiscard]] bool AboutToShow(int id);
    [[nodiscard]] QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

Q_SIGNALS:
    void ItemsPropertiesUpdated(const QList<zolva::MenuItemProperties>& updatedProps,
                                const QList<zolva::MenuItemLosses>& removedProps);
    void LayoutUpdated(uint revision, int parent);
    void ItemActivationRequested(int id, uint timestamp);

private:
    [[nodiscard]] bool isEntry(int id) const;
    [[nodiscard]] QVariantMap propertiesOf(int id) const;
    void take(int id, const QString& kind);

    TrayMenu* m_menu;
};

} // namespace zolva
