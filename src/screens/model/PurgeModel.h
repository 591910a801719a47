#pragma once

#include "screens/model/ListScreenModel.h"

#include <QQmlEngine>
#include <QString>

namespace zolva {

/// The Purge screen's words and deeds. Main thread; the model outlives it.
class PurgeModel final : public ListScreenModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")

public:
    explicit PurgeModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString subtitle() const override;
    [[nodiscard]] QString note() const override;
    [[nodiscard]] QString countText() const override; ///< "N projects selected"

    void scan() override;
    void rescan() override;

protected:
    [[nodiscard]] LoadState state() const override;
    void pickRow(const std::string& key, const Keys& order, bool shift) override;
    void setAll(const Keys& keys, bool ticked) override;
};

} // namespace zolva
