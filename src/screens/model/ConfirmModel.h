#pragma once

#include "core/AppModel.h"

#include "screens/model/ConfirmMessages.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// The words of the confirmation that is up, made from the model at each change of it. They stay
/// as they were while it goes away. Main thread; the model outlives it.
class ConfirmModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)
    /// Which sheet it is; the earlier one while none is up.
    Q_PROPERTY(QString subject READ subject NOTIFY subjectChanged)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString body READ body NOTIFY changed)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString button READ button NOTIFY changed)
    Q_PROPERTY(QList<zolva::ConfirmRow> rows READ rows NOTIFY changed)
    Q_PROPERTY(QString more READ more NOTIFY changed)

public:
    explicit ConfirmModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return m_isOpen; }
    [[nodiscard]] QString subject() const { return m_subject; }
    [[nodiscard]] QString title() const { return m_words.title; }
    [[nodiscard]] QString body() const { return m_words.body; }
    [[nodiscard]] QString symbol() const { return m_words.symbol; }
    [[nodiscard]] QString button() const { return m_words.button; }
    [[nodiscard]] QList<ConfirmRow> rows() const { return m_words.rows; }
    [[nodiscard]] QString more() const { return m_words.more; }

    Q_INVOKABLE void cancel();
    Q_INVOKABLE void confirm();

Q_SIGNALS:
    void isOpenChanged();
    void subjectChanged();
    void changed();

private:
    void follow(); ///< everything that the words are made from
    void refresh();
    [[nodiscard]] ConfirmWords wordsOf(const std::string& sheet) const;

    AppModel& m_model;
    bool m_isOpen = false;
    QString m_subject;
    ConfirmWords m_words;
};

} // namespace zolva
