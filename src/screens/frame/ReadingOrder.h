#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTimer>

namespace zolva {

/// Has the rows of a list view stand in their order among its children, and its footer behind them.
/// The view appends each row that it makes, also one that is shown further up, and both a screen
/// reader and the Tab key go by that. Only once the rows have come to rest, and only of rows with
/// an `index`. Main thread.
class ReadingOrder : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* list READ list WRITE setList NOTIFY listChanged)

public:
    explicit ReadingOrder(QObject* parent = nullptr);

    [[nodiscard]] QQuickItem* list() const { return m_list; }
    /// A ListView; once.
    void setList(QQuickItem* list);

Q_SIGNALS:
    void listChanged();

private Q_SLOTS:
    void followModel();

private:
    void sort() const;

    QPointer<QQuickItem> m_list;
    QPointer<QQuickItem> m_content; ///< whose children the rows are
    QPointer<QAbstractItemModel> m_model;
    QTimer m_rest;
};

} // namespace zolva
