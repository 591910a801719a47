#pragma once

#include "screens/model/InstallerRows.h"
#include "screens/model/ListScreenModel.h"

#include <QQmlEngine>
#include <QString>

#include <memory>

namespace zolva {

/// The Installers screen's words and deeds. Main thread; the model outlives it.
class InstallerModel final : public ListScreenModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")

public:
    explicit InstallerModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString subtitle() const override;
    [[nodiscard]] QString note() const override;
    [[nodiscard]] QString countText() const override; ///< "N files selected · S"

    void scan() override;
    void rescan() override;
    Q_INVOKABLE void removeOne(const QString& id); ///< at once, without asking
    Q_INVOKABLE void reveal(const QString& id);    ///< in the file manager

protected:
    [[nodiscard]] LoadState state() const override;
    void pickRow(const std::string& key, const Keys& order, bool shift) override;
    void setAll(const Keys& keys, bool ticked) override;

private:
    InstallerModel(AppModel& model, std::unique_ptr<InstallerRows> rows, QObject* parent);

    const InstallerRows& m_items; ///< the rows
};

} // namespace zolva
