#pragma once

#include "core/AppModel.h"

#include "screens/model/AppMessages.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <optional>

namespace zolva {

/// The application in focus, with what would go with it. Main thread; the model outlives it.
class AppDetail final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the UninstallModel")
    Q_PROPERTY(bool present READ present NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString meta READ meta NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QList<zolva::LeftoverLine> lines READ lines NOTIFY changed)

public:
    explicit AppDetail(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool present() const { return m_app.has_value(); }
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString meta() const;    ///< empty where nothing is known
    [[nodiscard]] QString summary() const; ///< what there is, or that it is being looked for
    [[nodiscard]] bool isEmpty() const;    ///< looked for, and nothing found
    [[nodiscard]] QList<LeftoverLine> lines() const { return m_lines; }

Q_SIGNALS:
    void changed();

private:
    void refresh();
    void refreshLines();
    [[nodiscard]] const Leftovers& leftovers() const;

    AppModel& m_model;
    std::optional<UninstallApp> m_app;
    QList<LeftoverLine> m_lines;
};

} // namespace zolva
