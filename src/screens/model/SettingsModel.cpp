#include "screens/model/SettingsModel.h"

#include "screens/model/SettingsMessages.h"
#include "screens/model/ShownText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace zolva {

namespace {

struct ThemeChoice
{
    ThemeMode mode;
    const char* name;
};

/// In the order of the picker.
constexpr std::array themeChoices = {ThemeChoice{ThemeMode::System, "System"},
                                     ThemeChoice{ThemeMode::Light, "Light"},
                                     ThemeChoice{ThemeMode::Dark, "Dark"}};

} // namespace

SettingsModel::SettingsModel(AppModel& model, QObject* parent)
    : QObject(parent), m_model(model), m_exclusions(model.exclusions())
{
    const AppSettings& settings = model.settings();
    connect(&settings, &AppSettings::themeModeChanged, this, &SettingsModel::themeChanged);
    connect(&settings, &AppSettings::keepInTrashChanged, this, &SettingsModel::keepInTrashChanged);
    connect(&settings, &AppSettings::pollChanged, this, &SettingsModel::intervalChanged);
    connect(&settings, &AppSettings::thresholdChanged, this, &SettingsModel::thresholdChanged);
    connect(&settings, &AppSettings::touchidChanged, this, &SettingsModel::touchidChanged);
    const Exclusions& exclusions = model.exclusions();
    connect(&exclusions, &Exclusions::wlDraftChanged, this, &SettingsModel::draftChanged);
    connect(&exclusions, &Exclusions::wlDraftChanged, this, &SettingsModel::draftChecked);
    connect(&exclusions, &Exclusions::whitelistChanged, this, &SettingsModel::draftChecked);
}

QStringList SettingsModel::themes() const
{
    QStringList names;
    for (const ThemeChoice& choice : themeChoices) {
        names.push_back(QString::fromUtf8(choice.name));
    }
    return names;
}

int SettingsModel::theme() const
{
    const auto* const found =
        std::find_if(themeChoices.begin(), themeChoices.end(), [this](const ThemeChoice& choice) {
            return choice.mode == settings().themeMode();
        });
    return static_cast<int>(std::distance(themeChoices.begin(), found));
}

void SettingsModel::setTheme(int place)
{
    if (place >= 0 && place < static_cast<int>(themeChoices.size())) {
        m_model.settings().setThemeMode(themeChoices.at(static_cast<std::size_t>(place)).mode);
    }
}

bool SettingsModel::keepInTrash() const
{
    return settings().keepInTrash();
}

void SettingsModel::setKeepInTrash(bool on)
{
    m_model.settings().setKeepInTrash(on);
}

QString SettingsModel::keepInTrashNote() const
{
    return zolva::keepInTrashNote(keepInTrash());
}

QString SettingsModel::keepInTrashSpoken() const
{
    return zolva::keepInTrashSpoken(keepInTrash());
}

QString SettingsModel::draft() const
{
    return QString::fromStdString(m_model.exclusions().wlDraft());
}

void SettingsModel::setDraft(const QString& text)
{
    m_model.exclusions().setWlDraft(text.toStdString());
}

QString SettingsModel::draftError() const
{
    return QString::fromStdString(m_model.exclusions().exclusionError().value_or(std::string()));
}

bool SettingsModel::canAdd() const
{
    const Exclusions& exclusions = m_model.exclusions();
    return !exclusions.wlDraft().empty() && !exclusions.exclusionError();
}

int SettingsModel::interval() const
{
    return static_cast<int>(settings().poll());
}

void SettingsModel::setInterval(int seconds)
{
    m_model.settings().setPoll(seconds);
}

QString SettingsModel::intervalText() const
{
    return QString::fromStdString(settings().pollText());
}

int SettingsModel::threshold() const
{
    return static_cast<int>(settings().threshold());
}

void SettingsModel::setThreshold(int percent)
{
    m_model.settings().setThreshold(percent);
}

QString SettingsModel::thresholdText() const
{
    return QString::number(threshold()) + QLatin1Char('%');
}

bool SettingsModel::touchid() const
{
    return settings().touchid();
}

void SettingsModel::setTouchid(bool on)
{
    m_model.settings().setTouchid(on);
}

QString SettingsModel::toolLine() const
{
    return zolva::toolLine(m_model.live().moVersion(), m_model.live().moKind());
}

QString SettingsModel::toolAbout() const
{
    return zolva::toolAbout(m_model.live().moVersion());
}

QString SettingsModel::toolSourceNote() const
{
    return zolva::toolSourceNote(m_model.live().moVersion());
}

void SettingsModel::add()
{
    m_model.exclusions().addExclusion();
}

void SettingsModel::remove(int row)
{
    m_exclusions.remove(row);
}

void SettingsModel::viewSource()
{
    m_model.openPage(toolPage(m_model.live().moVersion()));
}

void SettingsModel::openLicense()
{
    m_model.openToolLicense();
}

} // namespace zolva
