#include "ctl/Session.h"

#include <clocale>

namespace zolva::ctl {

namespace {

/// Complaints about the environment's character set and the like are for developers, and standard
/// error belongs to the answer's notes.
void drop(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*message*/) {}

} // namespace

Session::Silence::Silence() : before(qInstallMessageHandler(drop)) {}

Session::Silence::~Silence()
{
    qInstallMessageHandler(before);
}

Session::Session() : m_application(m_argumentCount, m_arguments)
{
    // The application took over the user's locale; numbers stay as every other command writes them.
    std::setlocale(LC_NUMERIC, "C");
}

Session::~Session() = default;

void Session::run()
{
    if (!m_over) {
        QCoreApplication::exec();
    }
}

void Session::end()
{
    m_over = true;
    QCoreApplication::quit();
}

} // namespace zolva::ctl
