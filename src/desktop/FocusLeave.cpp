#include "desktop/FocusLeave.h"

#include <QtGlobal>

namespace zolva {

namespace {

constexpr auto variable = "XDG_ACTIVATION_TOKEN";

} // namespace

FocusLeave::FocusLeave(const QString& token) : m_isGiven(!token.isEmpty())
{
    if (m_isGiven) {
        qputenv(variable, token.toUtf8());
    }
}

FocusLeave::~FocusLeave()
{
    // It is good for one window and once, and no tool that is started may inherit it.
    if (m_isGiven) {
        qunsetenv(variable);
    }
}

} // namespace zolva
