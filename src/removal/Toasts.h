#pragma once

#include "async/Clock.h"

#include <QAbstractListModel>
#include <QUuid>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace zolva {

enum class BannerKind
{
    Info,
    Warning,
    Success
};

/// One short report of a result.
struct Toast
{
    QUuid id;
    BannerKind kind = BannerKind::Info;
    QString text;
    std::optional<QString> actionTitle; ///< of the action's button
    std::function<void()> action;       ///< may be empty
};

/// How long each toast stands, with an action or without.
inline constexpr std::chrono::seconds toastLife{10};

/// The toasts that stand, oldest first, as many as there are; equal ones are not merged. Each goes
/// by itself after its time. As a model its rows tell themselves by the roles below. Main thread;
/// the clock outlives it.
class ToastList : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role
    {
        IdRole = Qt::UserRole + 1,
        KindRole, ///< "info", "warning" or "success"
        TextRole,
        ActionTitleRole, ///< empty without an action
    };

    explicit ToastList(Clock& clock, QObject* parent = nullptr);

    [[nodiscard]] const std::vector<Toast>& toasts() const { return m_toasts; }

    QUuid addToast(BannerKind kind, const QString& text,
                   std::optional<QString> actionTitle = std::nullopt,
                   std::function<void()> action = {});
    /// At once; without effect if it is gone already.
    Q_INVOKABLE void dismissToast(const QUuid& id);
    /// The press of the toast's button. The toast stays.
    Q_INVOKABLE void runAction(const QUuid& id);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    Clock& m_clock;
    std::vector<Toast> m_toasts;
};

} // namespace zolva
