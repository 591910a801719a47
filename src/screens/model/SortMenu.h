#pragma once

#include "core/AppModel.h"

#include <QObject>
#include <QQmlEngine>
#include <QStringList>

#include <string>
#include <vector>

namespace zolva {

/// The orders that one screen offers, and the one it shows. Main thread; the model outlives it.
class SortMenu final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to its screen's model")
    Q_PROPERTY(QStringList names READ names CONSTANT)
    Q_PROPERTY(int current READ current NOTIFY currentChanged)
    Q_PROPERTY(QString label READ label NOTIFY currentChanged)

public:
    SortMenu(AppModel& model, std::string screen, std::vector<SortKey> keys,
             QObject* parent = nullptr);

    [[nodiscard]] QStringList names() const;
    [[nodiscard]] int current() const; ///< the place in `names`; -1 for an order not offered
    [[nodiscard]] QString label() const;

    Q_INVOKABLE void choose(int place);

Q_SIGNALS:
    void currentChanged();

private:
    void follow();

    AppModel& m_model;
    std::string m_screen;
    std::vector<SortKey> m_keys;
    SortKey m_key; ///< as it was told last
};

} // namespace zolva
