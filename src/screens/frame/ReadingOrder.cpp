#include "screens/frame/ReadingOrder.h"

#include <QVariant>

#include <algorithm>
#include <chrono>

namespace zolva {

namespace {

/// After the last change: rows that come one by one are put in order together.
constexpr std::chrono::milliseconds restAfter{100};

int indexOf(const QQuickItem* row)
{
    return row->property("index").toInt();
}

} // namespace

ReadingOrder::ReadingOrder(QObject* parent) : QObject(parent)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(restAfter);
    connect(&m_rest, &QTimer::timeout, this, &ReadingOrder::sort);
}

void ReadingOrder::setList(QQuickItem* list)
{
    if (m_list || list == nullptr) {
        return;
    }
    m_list = list;
    m_content = list->property("contentItem").value<QQuickItem*>();
    if (m_content) {
        connect(m_content, &QQuickItem::childrenChanged, &m_rest, qOverload<>(&QTimer::start));
    }
    connect(list, SIGNAL(modelChanged()), this, SLOT(followModel()));
    followModel();
    m_rest.start();
    Q_EMIT listChanged();
}

void ReadingOrder::followModel()
{
    auto* const model = m_list->property("model").value<QAbstractItemModel*>();
    if (m_model == model) {
        return;
    }
    if (m_model) {
        disconnect(m_model, nullptr, &m_rest, nullptr);
    }
    m_model = model;
    if (m_model) {
        connect(m_model, &QAbstractItemModel::rowsMoved, &m_rest, qOverload<>(&QTimer::start));
        connect(m_model, &QAbstractItemModel::layoutChanged, &m_rest, qOverload<>(&QTimer::start));
    }
}

void ReadingOrder::sort() const
{
    if (!m_content) {
        return;
    }
    QList<QQuickItem*> rows = m_content->childItems();
    rows.removeIf([](const QQuickItem* item) { return !item->property("index").isValid(); });
    if (rows.isEmpty()) {
        return;
    }
    QQuickItem* const place = rows.constFirst();
    const auto isBefore = [](const QQuickItem* one, const QQuickItem* other) {
        return indexOf(one) < indexOf(other);
    };
    if (!std::is_sorted(rows.cbegin(), rows.cend(), isBefore)) {
        std::stable_sort(rows.begin(), rows.end(), isBefore);
        if (rows.constFirst() != place) {
            rows.constFirst()->stackBefore(place);
        }
        for (qsizetype i = 1; i < rows.size(); ++i) {
            rows[i]->stackAfter(rows[i - 1]);
        }
    }
    auto* const footer = m_list->property("footerItem").value<QQuickItem*>();
    const QList<QQuickItem*> all = m_content->childItems();
    if (footer != nullptr && all.indexOf(footer) < all.indexOf(rows.constLast())) {
        footer->stackAfter(rows.constLast());
    }
}

} // namespace zolva
