#pragma once

#include "async/Clock.h"
#include "platform/VolumeSpace.h"

#include <QObject>

#include <chrono>
#include <cstdint>
#include <functional>

namespace zolva {

inline constexpr std::chrono::seconds freeSpacePeriod{30};

/// Of the volume that holds the home folder, at once. Main thread.
[[nodiscard]] VolumeSpace homeVolumeSpace();

/// How much room is left there; 0 where it cannot be told. Main thread; the clock outlives it.
class FreeSpaceMeter : public QObject
{
    Q_OBJECT

public:
    explicit FreeSpaceMeter(Clock& clock, std::function<VolumeSpace()> read = homeVolumeSpace,
                            QObject* parent = nullptr);

    [[nodiscard]] std::int64_t freeSpace() const { return m_space.available; }
    [[nodiscard]] std::int64_t volumeTotal() const { return m_space.total; }

    void refreshFreeSpace();
    /// Refreshes at once and from then on every `freeSpacePeriod`. Once.
    void start();

Q_SIGNALS:
    void freeSpaceChanged();
    void volumeTotalChanged();

private:
    Clock& m_clock;
    std::function<VolumeSpace()> m_read;
    VolumeSpace m_space;
};

} // namespace zolva
