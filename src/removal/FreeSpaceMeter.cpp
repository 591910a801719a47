#include "removal/FreeSpaceMeter.h"

#include "async/Unawaited.h"
#include "files/HomeFolder.h"

#include <QPointer>

#include <utility>

namespace zolva {

namespace {

QCoro::Task<> refreshForever(Clock* clock, QPointer<FreeSpaceMeter> meter)
{
    while (meter) {
        co_await clock->sleep(freeSpacePeriod);
        if (meter) {
            meter->refreshFreeSpace();
        }
    }
}

} // namespace

VolumeSpace homeVolumeSpace()
{
    return volumeSpace(homeFolder());
}

FreeSpaceMeter::FreeSpaceMeter(Clock& clock, std::function<VolumeSpace()> read, QObject* parent)
    : QObject(parent), m_clock(clock), m_read(std::move(read))
{}

void FreeSpaceMeter::refreshFreeSpace()
{
    const VolumeSpace old = std::exchange(m_space, m_read());
    if (m_space.available != old.available) {
        Q_EMIT freeSpaceChanged();
    }
    if (m_space.total != old.total) {
        Q_EMIT volumeTotalChanged();
    }
}

void FreeSpaceMeter::start()
{
    refreshFreeSpace();
    unawaited(refreshForever(&m_clock, this));
}

} // namespace zolva
