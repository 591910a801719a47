#include "screens/model/SearchText.h"

namespace zolva {

QString searchForm(const QString& text, const QLocale& locale)
{
    // Upper case, for that of a letter does not hang on its place in the word, as the lower case of
    // a Greek sigma does; and names come from the disk both composed and decomposed.
    return locale.toUpper(text.normalized(QString::NormalizationForm_C));
}

} // namespace zolva
