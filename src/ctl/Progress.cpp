#include "ctl/Progress.h"

#include "ctl/Table.h"
#include "ctl/Terminal.h"
#include "files/SizeText.h"

#include <unistd.h>

#include <string>

namespace zolva::ctl {

namespace {

constexpr std::string_view eraseLine = "\r\x1b[K";

/// Progress that cannot be shown is no reason to stop.
void show(const std::string& text)
{
    static_cast<void>(writeAll(STDERR_FILENO, text));
}

} // namespace

Progress::Progress() : m_seen(canRedraw(STDERR_FILENO))
{
    if (m_seen) {
        draw();
    }
}

Progress::~Progress()
{
    if (m_seen) {
        show(std::string(eraseLine));
    }
}

WalkProgressTold Progress::teller()
{
    m_before = {m_before.files + m_now.files, m_before.bytes + m_now.bytes};
    m_now = {};
    if (!m_seen) {
        return {};
    }
    return [this](const WalkProgress& soFar) {
        m_now = soFar;
        draw();
    };
}

void Progress::draw()
{
    show(std::string(eraseLine) + counted(m_before.files + m_now.files, "file") + ", " +
         sizeText(m_before.bytes + m_now.bytes) + " so far");
}

} // namespace zolva::ctl
