#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace zolva {

/// Keeps it at one process for each session of the user. The first holds the place until it ends;
/// every later one asks it to come forward. Main thread.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Standing
    {
        First,      ///< also where nothing can tell them apart
        FirstTold,  ///< another has the place, and comes forward
        FirstSilent ///< another has the place, and does not answer
    };

    using QObject::QObject;

    /// Once, before there is a window; waits for the other one for some seconds at most. The token
    /// is the desktop's leave to take the focus; it may be empty.
    [[nodiscard]] virtual Standing claim(const QString& token) = 0;

Q_SIGNALS:
    /// Somebody started the program again. Only for the first.
    void asked(const QString& token);
};

[[nodiscard]] std::unique_ptr<SingleInstance> systemSingleInstance();

/// The desktop's leave to take the focus, as it was given to this process; may be empty.
[[nodiscard]] QString activationToken();

} // namespace zolva
