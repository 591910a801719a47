#include "core/StderrBox.h"

#include "files/DisplayPath.h"

namespace zolva {

void StderrBox::close()
{
    m_text = displayText(m_bytes);
    std::string().swap(m_bytes);
}

} // namespace zolva
