#pragma once

#include "desktop/OpenPlaces.h"
#include "desktop/RevealedPlace.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <string>

namespace zolva {

/// Opens places by the file manager on the bus, else by what is registered for them. Main thread.
class DesktopDoors final : public QObject
{
    Q_OBJECT

public:
    DesktopDoors(const QDBusConnection& bus, Places places, QObject* parent = nullptr);

    void openTrash();
    void openLogFolder();
    void openAccessSettings();
    void openPage(const std::string& url);
    /// Looks for the item off the main thread.
    void reveal(const std::string& path);
    void openToolLicense();

private:
    using Otherwise = std::function<void()>;

    /// What cannot be shown by the file manager of the bus is tried otherwise.
    void show(const QString& method, const QString& uri, const Otherwise& otherwise);
    void showItem(const std::string& asked, const RevealedPlace& place);
    void openFolder(const std::string& path, const char* words);

    QDBusConnection m_bus;
    Places m_places;
};

} // namespace zolva
