#pragma once

#include <QString>

namespace zolva {

/// The desktop's leave to take the focus, for the window that is brought forward while this lives:
/// the toolkit looks for it in the environment, where it stands only so long. An empty one is none,
/// and changes nothing. Main thread.
class FocusLeave
{
public:
    explicit FocusLeave(const QString& token);
    ~FocusLeave();
    FocusLeave(const FocusLeave&) = delete;
    FocusLeave& operator=(const FocusLeave&) = delete;

private:
    bool m_isGiven;
};

} // namespace zolva
