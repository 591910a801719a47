#pragma once

#include "core/AppModel.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// One line of the list in the confirmation.
class ConfirmRow
{
    Q_GADGET
    QML_VALUE_TYPE(confirmRow)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString size MEMBER size)

public:
    QString label; ///< a path, shortened
    QString size;  ///< as text; empty where it has none

    friend bool operator==(const ConfirmRow&, const ConfirmRow&) = default;
};

/// The words of the confirmation that is up, made from the model at each change of it. They stay
/// as they were while it goes away. Main thread; the model outlives it.
class ConfirmModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString body READ body NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString button READ button NOTIFY changed)
    Q_PROPERTY(QList<zolva::ConfirmRow> rows READ rows NOTIFY changed)
    Q_PROPERTY(QString more READ more NOTIFY changed)

public:
    /// How many rows are shown.
    static constexpr int rowLimit = 14;

    explicit ConfirmModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QString body() const { return m_body; }
    [[nodiscard]] QString symbol() const { return m_symbol; }
    [[nodiscard]] QString button() const { return m_button; }
    [[nodiscard]] QList<ConfirmRow> rows() const { return m_rows; } ///< at most `rowLimit`
    [[nodiscard]] QString more() const { return m_more; }           ///< "and K more", or empty

    Q_INVOKABLE void cancel();
    Q_INVOKABLE void confirm();

Q_SIGNALS:
    void isOpenChanged();
    void changed();

private:
    void refresh();

    AppModel& m_model;
    QString m_title;
    QString m_body;
    QString m_symbol;
    QString m_button;
    QList<ConfirmRow> m_rows;
    QString m_more;
};

} // namespace zolva
