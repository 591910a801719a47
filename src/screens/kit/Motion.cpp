#include "screens/kit/Motion.h"

namespace zolva {

void Motion::setReduced(bool reduced)
{
    if (m_isReduced == reduced)
        return;
    m_isReduced = reduced;
    Q_EMIT reducedChanged();
}

void Motion::setSoftware(bool software)
{
    if (m_isSoftware == software)
        return;
    m_isSoftware = software;
    Q_EMIT softwareChanged();
}

} // namespace zolva
