#include "screens/model/StatusWatch.h"

namespace zolva {

StatusWatch::~StatusWatch()
{
    hold(nullptr);
}

void StatusWatch::setStatus(StatusModel* status)
{
    if (m_status == status) {
        return;
    }
    m_status = status;
    hold(m_isActive ? status : nullptr);
    Q_EMIT statusChanged();
}

void StatusWatch::setActive(bool active)
{
    if (m_isActive == active) {
        return;
    }
    m_isActive = active;
    hold(active ? m_status.data() : nullptr);
    Q_EMIT activeChanged();
}

void StatusWatch::hold(StatusModel* wanted)
{
    const QPointer<StatusModel> before = m_held;
    m_held = wanted;
    // The new one first: a stream that both want goes on.
    if (wanted != nullptr) {
        wanted->appear();
    }
    if (before) {
        before->leave();
    }
}

} // namespace zolva
