#pragma once

#include <QObject>
#include <QQmlEngine>

namespace zolva {

/// How much may move, and for how long; in milliseconds. With `reduced` things change at once.
/// The program sets both flags. Main thread.
class Motion final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The desktop asks for less motion.
    Q_PROPERTY(bool reduced READ isReduced WRITE setReduced NOTIFY reducedChanged)
    /// Drawing is done by the processor: what moves without end must move in few steps.
    Q_PROPERTY(bool software READ isSoftware WRITE setSoftware NOTIFY softwareChanged)
    Q_PROPERTY(int sheet READ sheet NOTIFY reducedChanged)
    Q_PROPERTY(int selection READ selection NOTIFY reducedChanged)
    Q_PROPERTY(int bar READ bar NOTIFY reducedChanged)
    Q_PROPERTY(int backdrop READ backdrop CONSTANT)

public:
    using QObject::QObject;

    [[nodiscard]] bool isReduced() const { return m_isReduced; }
    void setReduced(bool reduced);
    [[nodiscard]] bool isSoftware() const { return m_isSoftware; }
    void setSoftware(bool software);
    [[nodiscard]] int sheet() const { return m_isReduced ? 0 : 180; }
    [[nodiscard]] int selection() const { return m_isReduced ? 0 : 200; }
    [[nodiscard]] int bar() const { return m_isReduced ? 0 : 200; }
    [[nodiscard]] int backdrop() const { return 11000; } ///< from one pose to the other

Q_SIGNALS:
    void reducedChanged();
    void softwareChanged();

private:
    bool m_isReduced = false;
    bool m_isSoftware = false;
};

} // namespace zolva
