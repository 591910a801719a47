#pragma once

#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>

namespace zolva {

/// A fine grain over everything below it; `opacity` says how strong. It takes no input. Every
/// overlay of the process shows the same grain.
class NoiseOverlay : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    static constexpr int tileSide = 140;

    explicit NoiseOverlay(QQuickItem* parent = nullptr);

    /// The grain, made at the first call: light specks where a random byte is above the middle,
    /// dark ones below it.
    [[nodiscard]] static const QImage& tile();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
};

} // namespace zolva
