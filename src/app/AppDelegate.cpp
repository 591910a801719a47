#include "app/AppDelegate.h"

#include "async/Unawaited.h"
#include "desktop/FocusLeave.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace zolva {

AppDelegate::AppDelegate(Clock& clock, QObject* parent) : QObject(parent), m_clock(clock)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void AppDelegate::setModel(ScreenModel* model)
{
    m_model = model;
    QuitModel* const quit = model->quit();
    connect(quit, &QuitModel::quit, this, &AppDelegate::terminate);
    connect(quit, &QuitModel::isAskingChanged, this, [this, quit] {
        // Whoever is asked must see it.
        if (quit->isAsking()) {
            shouldHandleReopen();
        }
    });
}

void AppDelegate::setWindow(QWindow* window)
{
    m_window = window;
    window->installEventFilter(this);
}

void AppDelegate::setHasTray(bool has)
{
    if (std::exchange(m_hasTray, has) == has) {
        return;
    }
    ++m_trayGen;
    if (!has && isOutOfSight()) {
        unawaited(missTray(this));
    }
}

QCoro::Task<> AppDelegate::missTray(QPointer<AppDelegate> self)
{
    const int gen = self->m_trayGen;
    co_await self->m_clock.sleep(trayPatience);
    if (self && self->m_trayGen == gen && self->isOutOfSight()) {
        self->shouldTerminate();
    }
}

bool AppDelegate::isOutOfSight() const
{
    return m_window && !m_window->isVisible();
}

void AppDelegate::shouldClose()
{
    if (m_hasTray && m_window) {
        m_window->hide();
    } else {
        shouldTerminate();
    }
}

void AppDelegate::shouldTerminate()
{
    if (!m_model) {
        Q_EMIT terminate();
    } else if (m_model->quit()->isAsking() || m_model->quit()->isLeaving()) {
        shouldHandleReopen();
    } else {
        m_model->quit()->ask();
    }
}

bool AppDelegate::mayEndSession()
{
    if (!m_model || !m_model->bulk()->present()) {
        return true;
    }
    shouldTerminate();
    return false;
}

void AppDelegate::shouldHandleReopen()
{
    if (!m_window) {
        return;
    }
    if (!m_window->isVisible()) {
        m_window->show();
    }
    if (m_window->windowStates().testFlag(Qt::WindowMinimized)) {
        m_window->setWindowStates(m_window->windowStates() &
                                  ~Qt::WindowStates(Qt::WindowMinimized));
    }
    m_window->raise();
    m_window->requestActivate();
}

void AppDelegate::reopen(const QString& token)
{
    const FocusLeave leave(token);
    shouldHandleReopen();
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event)
{
    const bool isClose = event->type() == QEvent::Close && watched == m_window;
    const bool isQuit = event->type() == QEvent::Quit && watched == QCoreApplication::instance();
    if (!isClose && !isQuit) {
        return QObject::eventFilter(watched, event);
    }
    event->ignore();
    if (isClose) {
        shouldClose();
    } else {
        shouldTerminate();
    }
    return true;
}

} // namespace zolva
