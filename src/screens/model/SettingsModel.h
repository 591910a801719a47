#pragma once

#include "core/AppModel.h"

#include "screens/model/ExclusionRows.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>

namespace zolva {

/// What the Settings screen shows and changes, at once and without a step of saving. Main thread;
/// the model outlives it.
class SettingsModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(QStringList themes READ themes CONSTANT)
    Q_PROPERTY(int theme READ theme WRITE setTheme NOTIFY themeChanged)
    Q_PROPERTY(bool keepInTrash READ keepInTrash WRITE setKeepInTrash NOTIFY keepInTrashChanged)
    Q_PROPERTY(QString keepInTrashNote READ keepInTrashNote NOTIFY keepInTrashChanged)
    Q_PROPERTY(QString keepInTrashSpoken READ keepInTrashSpoken NOTIFY keepInTrashChanged)
    Q_PROPERTY(zolva::ExclusionRows* exclusions READ exclusions CONSTANT)
    Q_PROPERTY(QString draft READ draft WRITE setDraft NOTIFY draftChanged)
    Q_PROPERTY(QString draftError READ draftError NOTIFY draftChecked)
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY draftChecked)
    Q_PROPERTY(int interval READ interval WRITE setInterval NOTIFY intervalChanged)
    Q_PROPERTY(QString intervalText READ intervalText NOTIFY intervalChanged)
    Q_PROPERTY(int threshold READ threshold WRITE setThreshold NOTIFY thresholdChanged)
    Q_PROPERTY(QString thresholdText READ thresholdText NOTIFY thresholdChanged)
    Q_PROPERTY(bool touchid READ touchid WRITE setTouchid NOTIFY touchidChanged)
    Q_PROPERTY(QString toolLine READ toolLine CONSTANT)
    Q_PROPERTY(QString toolAbout READ toolAbout CONSTANT)
    Q_PROPERTY(QString toolSourceNote READ toolSourceNote CONSTANT)

public:
    explicit SettingsModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QStringList themes() const; ///< what there is to choose from
    [[nodiscard]] int theme() const;          ///< the place in `themes`
    void setTheme(int place);
    [[nodiscard]] bool keepInTrash() const;
    void setKeepInTrash(bool on);
    [[nodiscard]] QString keepInTrashNote() const;
    [[nodiscard]] QString keepInTrashSpoken() const;
    [[nodiscard]] ExclusionRows* exclusions() { return &m_exclusions; }
    [[nodiscard]] QString draft() const;
    void setDraft(const QString& text);
    [[nodiscard]] QString draftError() const; ///< what is wrong with it; else empty
    [[nodiscard]] bool canAdd() const;
    [[nodiscard]] int interval() const; ///< seconds
    void setInterval(int seconds);
    [[nodiscard]] QString intervalText() const;
    [[nodiscard]] int threshold() const; ///< percent
    void setThreshold(int percent);
    [[nodiscard]] QString thresholdText() const;
    [[nodiscard]] bool touchid() const;
    void setTouchid(bool on);
    [[nodiscard]] QString toolLine() const;
    [[nodiscard]] QString toolAbout() const;
    [[nodiscard]] QString toolSourceNote() const;

    Q_INVOKABLE void add(); ///< the draft, if it may enter the list
    Q_INVOKABLE void remove(int row);
    Q_INVOKABLE void viewSource();
    Q_INVOKABLE void openLicense();

Q_SIGNALS:
    void themeChanged();
    void keepInTrashChanged();
    void draftChanged();
    void draftChecked(); ///< anew: the draft or the list has changed
    void intervalChanged();
    void thresholdChanged();
    void touchidChanged();

private:
    [[nodiscard]] const AppSettings& settings() const { return m_model.settings(); }

    AppModel& m_model;
    ExclusionRows m_exclusions;
};

} // namespace zolva
