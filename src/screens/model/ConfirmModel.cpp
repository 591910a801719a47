#include "screens/model/ConfirmModel.h"

#include <utility>

namespace zolva {

ConfirmModel::ConfirmModel(AppModel& model, QObject* parent) : QObject(parent), m_model(model)
{
    follow();
    refresh();
}

void ConfirmModel::follow()
{
    connect(&m_model, &AppModel::sheetChanged, this, &ConfirmModel::refresh);
    const AppLists* const lists = &m_model.lists();
    connect(lists, &AppLists::liveCatsChanged, this, &ConfirmModel::refresh);
    connect(lists, &AppLists::selChanged, this, &ConfirmModel::refresh);
    connect(lists, &AppLists::liveProjectsChanged, this, &ConfirmModel::refresh);
    connect(lists, &AppLists::projPickedChanged, this, &ConfirmModel::refresh);
    connect(lists, &AppLists::installersChanged, this, &ConfirmModel::refresh);
    connect(lists, &AppLists::instPickedChanged, this, &ConfirmModel::refresh);
    connect(&m_model.live(), &LiveData::appsChanged, this, &ConfirmModel::refresh);
    connect(&m_model.live(), &LiveData::checkedAppsChanged, this, &ConfirmModel::refresh);
    connect(&m_model.settings(), &AppSettings::keepInTrashChanged, this, &ConfirmModel::refresh);
    connect(&m_model.exclusions(), &Exclusions::whitelistChanged, this, &ConfirmModel::refresh);
    connect(&m_model.removal().trash(), &TrashMeter::trashChanged, this, &ConfirmModel::refresh);
}

ConfirmWords ConfirmModel::wordsOf(const std::string& sheet) const
{
    AppRemoval& removal = m_model.removal();
    const bool keepInTrash = m_model.settings().keepInTrash();
    if (sheet == "erase") {
        return eraseWords(removal.selectedCleanPaths(), removal.selectedCategoryCount(),
                          keepInTrash);
    }
    if (sheet == "purge") {
        return purgeWords(removal.selectedProjects(), keepInTrash);
    }
    if (sheet == "installer") {
        return installerWords(removal.selectedInstallers(), keepInTrash);
    }
    if (sheet == "uninstall") {
        return uninstallWords(removal.checkedApps(), keepInTrash);
    }
    if (sheet == "emptytrash") {
        return emptyTrashWords(removal.trash().trashCount(), removal.trash().trashBytes());
    }
    return {};
}

void ConfirmModel::refresh()
{
    const std::optional<std::string>& sheet = m_model.sheet();
    if (sheet) {
        ConfirmWords words = wordsOf(*sheet);
        if (m_words != words) {
            m_words = std::move(words);
            Q_EMIT changed();
        }
        const QString subject = QString::fromStdString(*sheet);
        if (std::exchange(m_subject, subject) != subject) {
            Q_EMIT subjectChanged();
        }
    }
    // The words first, so that nobody sees the sheet open with those of an earlier one.
    if (std::exchange(m_isOpen, sheet.has_value()) != sheet.has_value()) {
        Q_EMIT isOpenChanged();
    }
}

void ConfirmModel::cancel()
{
    m_model.setSheet(std::nullopt);
}

void ConfirmModel::confirm()
{
    m_model.runSheet();
}

} // namespace zolva
