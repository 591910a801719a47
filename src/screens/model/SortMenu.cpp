#include "screens/model/SortMenu.h"

#include <algorithm>
#include <utility>

namespace zolva {

namespace {

QString nameOf(SortKey key)
{
    const std::string_view name = sortKeyText(key);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace

SortMenu::SortMenu(AppModel& model, std::string screen, std::vector<SortKey> keys, QObject* parent)
    : QObject(parent), m_model(model), m_screen(std::move(screen)), m_keys(std::move(keys)),
      m_key(model.sortOf(m_screen))
{
    connect(&model, &AppModel::sortChanged, this, &SortMenu::follow);
}

QStringList SortMenu::names() const
{
    QStringList names;
    for (const SortKey key : m_keys) {
        names.push_back(nameOf(key));
    }
    return names;
}

int SortMenu::current() const
{
    const auto found = std::find(m_keys.begin(), m_keys.end(), m_key);
    return found == m_keys.end() ? -1 : static_cast<int>(found - m_keys.begin());
}

QString SortMenu::label() const
{
    return nameOf(m_key);
}

void SortMenu::choose(int place)
{
    if (place >= 0 && place < static_cast<int>(m_keys.size())) {
        m_model.setSort(m_screen, m_keys[static_cast<std::size_t>(place)]);
    }
}

void SortMenu::follow()
{
    const SortKey key = m_model.sortOf(m_screen);
    if (std::exchange(m_key, key) != key) {
        Q_EMIT currentChanged();
    }
}

} // namespace zolva
