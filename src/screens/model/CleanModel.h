#pragma once

#include "screens/model/CleanRows.h"
#include "screens/model/ListScreenModel.h"

#include <QQmlEngine>
#include <QString>

#include <memory>

namespace zolva {

/// The Clean screen's words and deeds. Main thread; the model outlives it.
class CleanModel final : public ListScreenModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(QString selectedSize READ selectedSize NOTIFY changed)
    Q_PROPERTY(QString selectedCount READ selectedCount NOTIFY changed)

public:
    explicit CleanModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString subtitle() const override;
    [[nodiscard]] QString selectedSize() const;
    [[nodiscard]] QString selectedCount() const; ///< "X of Y categories selected"
    [[nodiscard]] QString note() const override;

    void scan() override;
    void rescan() override;
    Q_INVOKABLE void toggleOpen(const QString& id);

protected:
    [[nodiscard]] LoadState state() const override;
    void pickRow(const std::string& key, const Keys& order, bool shift) override;
    void setAll(const Keys& keys, bool ticked) override;

private:
    CleanModel(AppModel& model, std::unique_ptr<CleanRows> rows, QObject* parent);
    void refreshNote();

    const CleanRows& m_categories; ///< the rows
    QString m_note;                ///< counted once per change
};

} // namespace zolva
