#pragma once

#include <QObject>
#include <QRect>
#include <QString>

#include <memory>
#include <vector>

namespace zolva {

struct TrayEntry
{
    QString title;
    bool isEnabled = true;

    friend bool operator==(const TrayEntry&, const TrayEntry&) = default;
};

/// The program's picture among those that the desktop keeps in sight, where it has a place for
/// them; such a place may come and go. Nothing is waited for, and nothing told where there is none.
/// Main thread, with a QGuiApplication.
class TrayItem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// From now on, wherever there is a place. Once.
    virtual void start() = 0;
    /// Somebody can see it.
    [[nodiscard]] virtual bool isShown() const = 0;

    /// Beside the picture where the desktop does that, and behind the program's name when the
    /// pointer rests there; each may be empty.
    virtual void setTexts(const QString& label, const QString& toolTip) = 0;
    /// Of its context menu, from the top.
    virtual void setEntries(std::vector<TrayEntry> entries) = 0;
    /// For a desktop that tints no pictures itself.
    virtual void setOnDark(bool isDark) = 0;

Q_SIGNALS:
    void shownChanged();
    /// Somebody clicked it; empty where it is not known where it stands.
    void activated(const QRect& place);
    /// One of its entries was chosen.
    void chosen(int entry);
};

[[nodiscard]] std::unique_ptr<TrayItem> systemTrayItem();

} // namespace zolva
