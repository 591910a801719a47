#pragma once

#include <QColor>
#include <QObject>
#include <QQmlEngine>

#include <array>
#include <cstddef>

namespace zolva {

/// The colours of one theme. All sRGB; they never change. Main thread.
class Palette final : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QColor win READ win CONSTANT)
    Q_PROPERTY(QColor sidebar READ sidebar CONSTANT)
    Q_PROPERTY(QColor content READ content CONSTANT)
    Q_PROPERTY(QColor card READ card CONSTANT)
    Q_PROPERTY(QColor cardHover READ cardHover CONSTANT)
    Q_PROPERTY(QColor well READ well CONSTANT)
    Q_PROPERTY(QColor sep READ sep CONSTANT)
    Q_PROPERTY(QColor sep2 READ sep2 CONSTANT)
    Q_PROPERTY(QColor label READ label CONSTANT)
    Q_PROPERTY(QColor label2 READ label2 CONSTANT)
    Q_PROPERTY(QColor label3 READ label3 CONSTANT)
    Q_PROPERTY(QColor btn READ btn CONSTANT)
    Q_PROPERTY(QColor btnHover READ btnHover CONSTANT)
    Q_PROPERTY(QColor accent READ accent CONSTANT)
    Q_PROPERTY(QColor accentHover READ accentHover CONSTANT)
    Q_PROPERTY(QColor accentTint READ accentTint CONSTANT)
    Q_PROPERTY(QColor red READ red CONSTANT)
    Q_PROPERTY(QColor redHover READ redHover CONSTANT)
    Q_PROPERTY(QColor green READ green CONSTANT)
    Q_PROPERTY(QColor amber READ amber CONSTANT)
    Q_PROPERTY(QColor sheet READ sheet CONSTANT)
    Q_PROPERTY(QColor scrim READ scrim CONSTANT)

public:
    enum class Kind
    {
        Light,
        Dark
    };

    explicit Palette(Kind kind, QObject* parent = nullptr);

    [[nodiscard]] QColor win() const { return m_colors[0]; }
    [[nodiscard]] QColor sidebar() const { return m_colors[1]; }
    [[nodiscard]] QColor content() const { return m_colors[2]; }
    [[nodiscard]] QColor card() const { return m_colors[3]; }
    [[nodiscard]] QColor cardHover() const { return m_colors[4]; }
    [[nodiscard]] QColor well() const { return m_colors[5]; }
    [[nodiscard]] QColor sep() const { return m_colors[6]; }
    [[nodiscard]] QColor sep2() const { return m_colors[7]; }
    [[nodiscard]] QColor label() const { return m_colors[8]; }
    [[nodiscard]] QColor label2() const { return m_colors[9]; }
    [[nodiscard]] QColor label3() const { return m_colors[10]; }
    [[nodiscard]] QColor btn() const { return m_colors[11]; }
    [[nodiscard]] QColor btnHover() const { return m_colors[12]; }
    [[nodiscard]] QColor accent() const { return m_colors[13]; }
    [[nodiscard]] QColor accentHover() const { return m_colors[14]; }
    [[nodiscard]] QColor accentTint() const { return m_colors[15]; }
    [[nodiscard]] QColor red() const { return m_colors[16]; }
    [[nodiscard]] QColor redHover() const { return m_colors[17]; }
    [[nodiscard]] QColor green() const { return m_colors[18]; }
    [[nodiscard]] QColor amber() const { return m_colors[19]; }
    [[nodiscard]] QColor sheet() const { return m_colors[20]; }
    [[nodiscard]] QColor scrim() const { return m_colors[21]; }

    static constexpr std::size_t fields = 22;

private:
    std::array<QColor, fields> m_colors; ///< in the order of the properties
};

} // namespace zolva
