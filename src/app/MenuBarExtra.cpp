#include "app/MenuBarExtra.h"

#include "app/PanelPlace.h"
#include "async/Unawaited.h"
#include "screens/model/MenuMessages.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QScreen>

#include <utility>

namespace zolva {

namespace {

/// A click on the item takes the keys away from the panel, which closes, before it is told: it is
/// meant to close it, and not to open it anew.
constexpr std::chrono::milliseconds sameClick{250};

/// At once, and not with the first frame: its size is wanted before.
void layOut(QQuickItem& item)
{
    const QList<QQuickItem*> children = item.childItems();
    for (QQuickItem* const child : children) {
        layOut(*child);
    }
    item.ensurePolished();
}

} // namespace

MenuBarExtra::MenuBarExtra(std::unique_ptr<TrayItem> item, ScreenModel& model, QQmlEngine& engine,
                           Clock& clock, QObject* parent)
    : QObject(parent), m_item(std::move(item)), m_model(model), m_engine(engine), m_clock(clock)
{
    connect(m_item.get(), &TrayItem::shownChanged, this, [this] {
        if (isShown()) {
            unawaited(makePanelLater(this));
        }
        Q_EMIT shownChanged();
    });
    connect(m_item.get(), &TrayItem::activated, this, &MenuBarExtra::toggle);
    connect(m_item.get(), &TrayItem::chosen, this, &MenuBarExtra::choose);
    connect(model.menu(), &MenuPanelModel::reclaimChanged, this, &MenuBarExtra::showTexts);
    connect(model.updates(), &UpdateModel::changed, this, &MenuBarExtra::showEntries);
    showTexts();
    showEntries();
}

MenuBarExtra::~MenuBarExtra() = default;

QCoro::Task<> MenuBarExtra::makePanelLater(QPointer<MenuBarExtra> self)
{
    co_await self->m_clock.sleep(panelDelay);
    if (self) {
        static_cast<void>(self->panel());
    }
}

void MenuBarExtra::showEntries()
{
    const UpdateModel& updates = *m_model.updates();
    m_deeds = {Deed::Open};
    std::vector<TrayEntry> entries = {{QString::fromUtf8(menuwords::openZolva)}};
    if (updates.menuShown()) {
        m_deeds.push_back(Deed::CheckForUpdates);
        entries.push_back({updates.menuTitle(), updates.canCheck()});
    }
    m_deeds.push_back(Deed::Quit);
    entries.push_back({QString::fromUtf8(menuwords::quitZolva)});
    m_item->setEntries(std::move(entries));
}

void MenuBarExtra::showTexts()
{
    m_item->setTexts(m_model.menu()->itemLabel(), m_model.menu()->itemToolTip());
}

void MenuBarExtra::choose(int entry)
{
    if (entry < 0 || static_cast<std::size_t>(entry) >= m_deeds.size()) {
        return;
    }
    switch (m_deeds[static_cast<std::size_t>(entry)]) {
    case Deed::Open:
        m_model.menu()->openMain();
        break;
    case Deed::CheckForUpdates:
        // Where its outcome is told.
        m_model.menu()->openMain(QStringLiteral("settings"));
        m_model.updates()->check();
        break;
    case Deed::Quit:
        m_model.menu()->quit();
        break;
    }
}

void MenuBarExtra::toggle(const QRect& place)
{
    QQuickWindow* const shown = panel();
    if (shown == nullptr || (m_closed && m_clock.steadyNow() - *m_closed < sameClick)) {
        return;
    }
    if (shown->isVisible()) {
        shown->hide();
    } else {
        open(*shown, place);
    }
}

void MenuBarExtra::open(QQuickWindow& panel, const QRect& place)
{
    m_place = place;
    putInPlace(panel);
    panel.show();
    panel.raise();
    panel.requestActivate();
    m_model.menu()->opened();
}

void MenuBarExtra::putInPlace(QQuickWindow& panel) const
{
    const QScreen* screen = QGuiApplication::screenAt(m_place.center());
    if (m_place.isEmpty() || screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    panel.setPosition(
        panelPlace(panel.size(), m_place, screen->geometry(), screen->availableGeometry()));
}

QQuickWindow* MenuBarExtra::panel()
{
    if (!m_panel) {
        QQmlComponent component(&m_engine,
                                QUrl(QStringLiteral("qrc:/qml/Zolva/Screens/Menu/MenuWindow.qml")));
        std::unique_ptr<QObject> made(component.createWithInitialProperties(
            {{QStringLiteral("model"), QVariant::fromValue(&m_model)}}));
        m_panel.reset(qobject_cast<QQuickWindow*>(made.get()));
        if (!m_panel) {
            qWarning("%s", qPrintable(component.errorString()));
            return nullptr;
        }
        static_cast<void>(made.release());
        layOut(*m_panel->contentItem());
        // What it tells may need a line more, and it grows away from the item.
        connect(m_panel.get(), &QWindow::heightChanged, this, [this] { putInPlace(*m_panel); });
        connect(m_panel.get(), &QWindow::visibleChanged, this, [this](bool isVisible) {
            if (!isVisible) {
                m_closed = m_clock.steadyNow();
            }
        });
    }
    return m_panel.get();
}

} // namespace zolva
