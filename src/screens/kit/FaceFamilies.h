#pragma once

#include <QString>

namespace zolva {

/// A face in its two families. Fonts come in whole pixels alone; at a size of 13 `half` looks as
/// the face would at 12.5, and so at the other sizes of text.
struct FaceFamily
{
    QString whole;
    QString half;
};

/// What text is set in. The digits of `text` are all of one width.
struct FaceFamilies
{
    FaceFamily text;
    FaceFamily mono;
};

/// Loads them into the program at the first call. Main thread; needs the QGuiApplication.
[[nodiscard]] const FaceFamilies& faceFamilies();

} // namespace zolva
