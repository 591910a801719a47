#pragma once

#include "async/Clock.h"
#include "desktop/TrayItem.h"
#include "screens/model/ScreenModel.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickWindow>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace zolva {

/// How long after the item came in sight its panel is made, so that the first click need not wait
/// for that, nor the start of the program.
inline constexpr std::chrono::seconds panelDelay{2};

/// The program's item among those of the desktop, and the panel that a click opens. Main thread;
/// all that it is given by reference outlives it.
class MenuBarExtra final : public QObject
{
    Q_OBJECT

public:
    MenuBarExtra(std::unique_ptr<TrayItem> item, ScreenModel& model, QQmlEngine& engine,
                 Clock& clock, QObject* parent = nullptr);
    ~MenuBarExtra() override;

    /// Once.
    void start() { m_item->start(); }
    [[nodiscard]] bool isShown() const { return m_item->isShown(); }
    /// Of the desktop.
    void setOnDark(bool isDark) { m_item->setOnDark(isDark); }

Q_SIGNALS:
    void shownChanged();

private:
    enum class Deed
    {
        Open,
        CheckForUpdates,
        Quit
    };

    void showEntries();
    static QCoro::Task<> makePanelLater(QPointer<MenuBarExtra> self);
    void showTexts();
    void choose(int entry);
    void toggle(const QRect& place);
    void open(QQuickWindow& panel, const QRect& place);
    void putInPlace(QQuickWindow& panel) const;
    [[nodiscard]] QQuickWindow* panel();

    std::unique_ptr<TrayItem> m_item;
    ScreenModel& m_model;
    QQmlEngine& m_engine;
    Clock& m_clock;
    std::vector<Deed> m_deeds; ///< of the item's entries
    std::unique_ptr<QQuickWindow> m_panel;
    QRect m_place; ///< of the item, when it was last clicked
    std::optional<std::chrono::steady_clock::time_point> m_closed; ///< the panel, last
};

} // namespace zolva
