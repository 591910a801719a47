#pragma once

#include <QObject>

#include <memory>

namespace zolva {

/// Whether the desktop asks for as little movement as can be. It waits for nothing: until the
/// desktop tells, there is no such wish. Main thread.
class ReducedMotion : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isReduced() const = 0;

Q_SIGNALS:
    void changed();
};

[[nodiscard]] std::unique_ptr<ReducedMotion> systemReducedMotion();

} // namespace zolva
