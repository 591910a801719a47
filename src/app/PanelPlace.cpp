#include "app/PanelPlace.h"

#include <algorithm>

namespace zolva {

namespace {

constexpr int gap = 6;

/// Without the last pixel that a QRect counts less.
int endX(const QRect& rect)
{
    return rect.x() + rect.width();
}

int endY(const QRect& rect)
{
    return rect.y() + rect.height();
}

/// The upper end where both cannot be had: it is where one begins to read.
int within(int value, int low, int high)
{
    return std::max(low, std::min(value, high));
}

QPoint wished(const QSize& panel, const QRect& item, const QRect& screen, const QRect& available)
{
    if (item.isEmpty()) {
        const bool isBelow = endY(available) < endY(screen) && available.y() == screen.y();
        return {endX(screen), isBelow ? endY(screen) : screen.y()};
    }
    const bool isAbove = item.center().y() < screen.center().y();
    return {item.center().x() - panel.width() / 2,
            isAbove ? endY(item) + gap : item.y() - panel.height() - gap};
}

} // namespace

QPoint panelPlace(const QSize& panel, const QRect& item, const QRect& screen,
                  const QRect& available)
{
    const QPoint wish = wished(panel, item, screen, available);
    return {within(wish.x(), available.x() + gap, endX(available) - panel.width() - gap),
            within(wish.y(), available.y() + gap, endY(available) - panel.height() - gap)};
}

} // namespace zolva
