#pragma once

#include <QCoreApplication>

namespace zolva::ctl {

/// The event loop of a command that waits for something, and how long it runs. Only such commands
/// make one, and at most one: it takes time. What Qt itself has to say goes nowhere. Its end waits
/// for the work on the thread pool. Main thread.
class Session
{
public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Until `end`, which may have come before.
    void run();
    void end();

private:
    /// From before the application's start to after its end.
    struct Silence
    {
        Silence();
        ~Silence();
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

        QtMessageHandler before;
    };

    Silence m_silence;
    int m_argumentCount = 1;
    char m_name[9] = "zolvactl";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application;
    bool m_over = false;
};

} // namespace zolva::ctl
