#include "screens/model/BulkModel.h"

#include <algorithm>

namespace zolva {

BulkModel::BulkModel(AppModel& model, QObject* parent) : QObject(parent), m_model(model)
{
    connect(&model.removal().runs(), &RunState::bulkChanged, this, &BulkModel::changed);
}

BulkProgress BulkModel::progress() const
{
    return m_model.removal().runs().bulk().value_or(BulkProgress());
}

bool BulkModel::present() const
{
    return m_model.removal().runs().bulk().has_value();
}

QString BulkModel::title() const
{
    return progress().title;
}

QString BulkModel::current() const
{
    return progress().current;
}

QString BulkModel::countText() const
{
    const BulkProgress run = progress();
    return run.total == 0
               ? QString()
               : QString::number(run.done) + QStringLiteral(" of ") + QString::number(run.total);
}

qreal BulkModel::fraction() const
{
    const BulkProgress run = progress();
    if (run.total == 0) {
        return 1;
    }
    return std::clamp(static_cast<qreal>(run.done) / static_cast<qreal>(run.total), 0.0, 1.0);
}

QString BulkModel::spokenValue() const
{
    const BulkProgress run = progress();
    if (run.total == 0) {
        return QStringLiteral("In progress");
    }
    return run.current.isEmpty() ? countText()
                                 : countText() + QStringLiteral(", currently ") + run.current;
}

void BulkModel::requestCancel()
{
    m_model.removal().runs().requestCancel();
}

} // namespace zolva
