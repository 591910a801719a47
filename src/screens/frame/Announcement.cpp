#include "screens/frame/Announcement.h"

#include <QAccessible>

namespace zolva {

void Announcement::alert(QQuickItem* item) const
{
    if (item == nullptr || !QAccessible::isActive()) {
        return;
    }
    QAccessibleEvent shown(item, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
    QAccessibleEvent alert(item, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace zolva
