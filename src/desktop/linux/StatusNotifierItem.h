#pragma once

#include "desktop/TrayItem.h"

#include "desktop/linux/TrayMenu.h"
#include "desktop/linux/TrayTypes.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

#include <string>

namespace zolva {

/// An item as most desktops take it over the session bus: it registers with their watcher whenever
/// there is one, and is shown while that has somebody who draws it. Main thread.
class StatusNotifierItem final : public TrayItem
{
    Q_OBJECT

public:
    /// The folder of pictures is the program's own and may be empty.
    StatusNotifierItem(const QDBusConnection& bus, const std::string& iconFolder,
                       QObject* parent = nullptr);
    ~StatusNotifierItem() override;

    void start() override;
    [[nodiscard]] bool isShown() const override { return m_isRegistered && m_hasHost; }
    void setTexts(const QString& label, const QString& toolTip) override;
    void setEntries(std::vector<TrayEntry> entries) override;
    void setOnDark(bool isDark) override;

    [[nodiscard]] const QString& label() const { return m_label; }
    [[nodiscard]] const QString& toolTip() const { return m_toolTip; }
    [[nodiscard]] const QString& iconFolder() const { return m_iconFolder; }
    [[nodiscard]] bool isOnDark() const { return m_isOnDark; }

    /// The leave to take the focus, for the one click that follows.
    void takeToken(const QString& token) { m_token = token; }
    void click(const QRect& place);

Q_SIGNALS:
    void textsChanged();
    void iconChanged();

private Q_SLOTS:
    void askForHost();

private:
    void takeOwner(const QString& owner);
    void registerItem();
    void takeState(bool isRegistered, bool hasHost);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    TrayMenu m_menu;
    QString m_label;
    QString m_toolTip;
    QString m_iconFolder;
    QString m_name;  ///< on the bus
    QString m_owner; ///< the watcher that was told of it
    QString m_token; ///< not yet used
    bool m_isOnDark = false;
    bool m_isRegistered = false;
    bool m_hasHost = false;
};

/// What desktops read and call to draw it.
class StatusNotifierDoor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QString IconThemePath READ iconThemePath)
    Q_PROPERTY(QString IconAccessibleDesc READ title)
    Q_PROPERTY(QList<zolva::TrayPixmap> IconPixmap READ iconPixmap)
    Q_PROPERTY(zolva::TrayToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)

public:
    explicit StatusNotifierDoor(StatusNotifierItem* item);

    [[nodiscard]] static QString category() { return QStringLiteral("SystemServices"); }
    [[nodiscard]] static QString id();
    [[nodiscard]] QString title() const; ///< with the sum: not all desktops show a label
    [[nodiscard]] static QString status() { return QStringLiteral("Active"); }
    [[nodiscard]] static int windowId() { return 0; }
    [[nodiscard]] QString iconName() const;
    [[nodiscard]] QString iconThemePath() const { return m_item->iconFolder(); }
    [[nodiscard]] QList<zolva::TrayPixmap> iconPixmap() const;
    [[nodiscard]] zolva::TrayToolTip toolTip() const;
    [[nodiscard]] static bool itemIsMenu() { return false; }
    [[nodiscard]] static QDBusObjectPath menu();
    [[nodiscard]] QString label() const { return m_item->label(); }
    [[nodiscard]] static QString labelGuide() { return QStringLiteral("888.88 GB"); }

public Q_SLOTS:
    // Called by these names.
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);
    void ProvideXdgActivationToken(const QString& token);

Q_SIGNALS:
    void NewTitle();
    void NewIcon();
    void NewToolTip();
    void NewStatus(const QString& status);
    void XAyatanaNewLabel(const QString& label, const QString& guide);

private:
    StatusNotifierItem* m_item;
};

} // namespace zolva
