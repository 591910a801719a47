#pragma once

#include <QString>

namespace zolva {

/// The families that text is set in. The digits of `text` are all of one width.
struct FaceFamilies
{
    QString text;
    QString mono;
};

/// Loads them into the program at the first call. Main thread; needs the QGuiApplication.
[[nodiscard]] const FaceFamilies& faceFamilies();

} // namespace zolva
