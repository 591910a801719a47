// The order in which a model comes to life.

#include "core/AppModel.h"

#include "async/Unawaited.h"
#include "core/PrefsMessages.h"
#include "diagnostics/RunJournal.h"

#include <chrono>
#include <utility>

namespace zolva {

namespace {

constexpr std::chrono::duration<double> updateInterval = std::chrono::hours(24);

} // namespace

// The members come first, in their order: live data, then the fields with their defaults.
AppModel::AppModel(AppDependencies dependencies, QObject* parent)
    : QObject(parent),
      m_live(std::move(dependencies.runner), std::move(dependencies.scans), dependencies.mo),
      m_updates(dependencies.clock, std::move(dependencies.updates), dependencies.doors.page),
      m_settings(dependencies.prefs, m_live), m_toasts(dependencies.clock),
      m_reads(std::move(dependencies.reads)), m_doors(std::move(dependencies.doors)),
      m_removal({dependencies.clock, m_live, m_settings, m_lists, m_toasts},
                std::move(dependencies.disk), dependencies.logFolder, m_doors.trash)
{
    connect(&m_removal.trash(), &TrashMeter::emptyTrashWanted, this, &AppModel::askEmptyTrash);
    connect(&m_settings, &AppSettings::themeModeChanged, this, &AppModel::isLightThemeChanged);
    if (dependencies.crashCapture) {
        dependencies.crashCapture(dependencies.logFolder);
    }
    readAppearance(dependencies.appearance);
    m_settings.loadPrefs();
    followAppearance(dependencies.appearance);
    if (dependencies.steps.meters) {
        m_removal.trash().startMeters();
    }
    if (dependencies.steps.prefsCheck) {
        checkPrefs();
    }
    if (dependencies.steps.journalCheck) {
        checkRunJournal(dependencies.logFolder);
    }
    if (dependencies.steps.accessProbe && !m_settings.prefs().seenAccessIntro()) {
        unawaited(introduceAccess());
    }
}

void AppModel::checkForUpdatesIfDue()
{
    Prefs& prefs = m_settings.prefs();
    m_updates.checkIfDue({.read = [&prefs] { return prefs.lastUpdateCheck(); },
                          .write = [&prefs](double now) { prefs.writeLastUpdateCheck(now); }},
                         updateInterval);
}

void AppModel::followAppearance(SystemAppearance* appearance)
{
    if (appearance == nullptr) {
        return;
    }
    // At the news the desktop may still give the old answer; one turn of the event loop later it
    // gives the new one.
    connect(
        appearance, &SystemAppearance::changed, this,
        [this, appearance] { readAppearance(appearance); }, Qt::QueuedConnection);
}

void AppModel::readAppearance(const SystemAppearance* appearance)
{
    const bool dark = appearance != nullptr && appearance->isDark().value_or(false);
    if (std::exchange(m_systemIsDark, dark) != dark) {
        Q_EMIT systemIsDarkChanged();
        Q_EMIT isLightThemeChanged();
    }
}

void AppModel::checkPrefs()
{
    if (const auto text = prefsTroubleText(m_settings.prefs().trouble())) {
        m_toasts.addToast(BannerKind::Warning, QString::fromStdString(*text));
    }
}

void AppModel::checkRunJournal(const std::string& folder)
{
    if (const std::optional<UnfinishedRun> run = takeUnfinishedRun(folder)) {
        m_toasts.addToast(BannerKind::Warning, QString::fromStdString(unfinishedRunText(*run)),
                          QStringLiteral("Show log"), m_doors.logFolder);
    }
}

} // namespace zolva
