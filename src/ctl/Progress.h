#pragma once

#include "files/TreeWalker.h"

namespace zolva::ctl {

/// One line on standard error that tells files and bytes so far, where that is a terminal; gone
/// when this goes. Scans run one after the other; what each tells adds to those before it.
class Progress
{
public:
    Progress();
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// For the next scan; empty where nobody looks. Must not be called after this is gone.
    [[nodiscard]] WalkProgressTold teller();

private:
    void draw();

    const bool m_seen;
    WalkProgress m_before; ///< of the scans that are done
    WalkProgress m_now;    ///< of the scan that is going; its walker tells one at a time
};

} // namespace zolva::ctl
