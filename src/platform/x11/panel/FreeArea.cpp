#include "FreeArea.h"

#include <algorithm>
#include <array>

namespace tintwick {

namespace {

using Edge = Strut::Edge;

QRect rectOf(const Strut& strut, QSize root)
{
    const auto along = [&](int length) { return std::min(strut.end, length - 1) - strut.start + 1; };
    switch (strut.edge) {
    case Edge::Left:
        return {0, strut.start, strut.depth, along(root.height())};
    case Edge::Right:
        return {root.width() - strut.depth, strut.start, strut.depth, along(root.height())};
    case Edge::Top:
        return {strut.start, 0, along(root.width()), strut.depth};
    case Edge::Bottom:
        return {strut.start, root.height() - strut.depth, along(root.width()), strut.depth};
    }
    return {};
}

/// Takes the strut from `free`, a part of `monitor`.
void reserve(QRect& free, const QRect& monitor, const Strut& strut, QSize root)
{
    const QRect taken = rectOf(strut, root).intersected(monitor);
    const bool isSideways = strut.edge == Edge::Left || strut.edge == Edge::Right;
    const bool isWhole = isSideways ? taken.width() == monitor.width() : taken.height() == monitor.height();
    if (taken.isEmpty() || isWhole) {
        return;
    }
    switch (strut.edge) {
    case Edge::Left:
        free.setLeft(std::max(free.left(), taken.right() + 1));
        break;
    case Edge::Right:
        free.setRight(std::min(free.right(), taken.left() - 1));
        break;
    case Edge::Top:
        free.setTop(std::max(free.top(), taken.bottom() + 1));
        break;
    case Edge::Bottom:
        free.setBottom(std::min(free.bottom(), taken.top() - 1));
        break;
    }
}

int deepest(const std::vector<Strut>& struts, Edge edge)
{
    int result = 0;
    for (const Strut& strut : struts) {
        if (strut.edge == edge) {
            result = std::max(result, strut.depth);
        }
    }
    return result;
}

} // namespace

QRect freeArea(const QRect& monitor, QSize root, const QRect& workArea, const std::vector<Strut>& struts)
{
    QRect free = monitor;
    for (const Strut& strut : struts) {
        reserve(free, monitor, strut, root);
    }
    if (!workArea.isEmpty()) {
        const std::array margins{Strut{Edge::Left, workArea.left()}, Strut{Edge::Top, workArea.top()},
                                 Strut{Edge::Right, root.width() - 1 - workArea.right()},
                                 Strut{Edge::Bottom, root.height() - 1 - workArea.bottom()}};
        for (const Strut& margin : margins) {
            if (margin.depth > deepest(struts, margin.edge)) {
                reserve(free, monitor, margin, root);
            }
        }
    }
    return free.isEmpty() ? monitor : free;
}

} // namespace tintwick
