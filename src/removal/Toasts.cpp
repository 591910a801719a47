#include "removal/Toasts.h"

#include "async/Unawaited.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace zolva {

namespace {

QCoro::Task<> dismissInTime(Clock* clock, QPointer<ToastList> list, QUuid id)
{
    co_await clock->sleep(toastLife);
    if (list) {
        list->dismissToast(id);
    }
}

QString kindName(BannerKind kind)
{
    switch (kind) {
    case BannerKind::Info:
        return QStringLiteral("info");
    case BannerKind::Warning:
        return QStringLiteral("warning");
    case BannerKind::Success:
        return QStringLiteral("success");
    }
    return {};
}

} // namespace

ToastList::ToastList(Clock& clock, QObject* parent) : QAbstractListModel(parent), m_clock(clock) {}

QUuid ToastList::addToast(BannerKind kind, const QString& text, std::optional<QString> actionTitle,
                          std::function<void()> action)
{
    const QUuid id = QUuid::createUuid();
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_toasts.push_back({id, kind, text, std::move(actionTitle), std::move(action)});
    endInsertRows();
    // Nothing cancels it: removing by id does no harm to a toast that is gone.
    unawaited(dismissInTime(&m_clock, this, id));
    return id;
}

void ToastList::dismissToast(const QUuid& id)
{
    const auto found = std::find_if(m_toasts.begin(), m_toasts.end(),
                                    [&](const Toast& toast) { return toast.id == id; });
    if (found == m_toasts.end()) {
        return;
    }
    const auto row = static_cast<int>(found - m_toasts.begin());
    beginRemoveRows({}, row, row);
    m_toasts.erase(found);
    endRemoveRows();
}

void ToastList::runAction(const QUuid& id)
{
    const auto found = std::find_if(m_toasts.begin(), m_toasts.end(),
                                    [&](const Toast& toast) { return toast.id == id; });
    if (found == m_toasts.end() || !found->action) {
        return;
    }
    // The action may raise and dismiss toasts, this one too.
    const std::function<void()> action = found->action;
    action();
}

int ToastList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_toasts.size());
}

QVariant ToastList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const Toast& toast = m_toasts[static_cast<std::size_t>(index.row())];
    switch (role) {
    case IdRole:
        return toast.id;
    case KindRole:
        return kindName(toast.kind);
    case TextRole:
        return toast.text;
    case ActionTitleRole:
        return toast.actionTitle.value_or(QString());
    default:
        return {};
    }
}

QHash<int, QByteArray> ToastList::roleNames() const
{
    return {{IdRole, "toastId"},
            {KindRole, "kind"},
            {TextRole, "text"},
            {ActionTitleRole, "actionTitle"}};
}

} // namespace zolva
