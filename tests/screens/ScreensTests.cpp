#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <QLocale>
#include <QQmlEngine>
#include <QtQuickTest>

namespace zolva::test {

/// What all screens stand on: one home folder and one locale for the whole program, and the QML
/// modules that are built into it.
class ScreensSetup final : public QObject
{
    Q_OBJECT

public:
    ScreensSetup() { QLocale::setDefault(QLocale::c()); }

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine)
    {
        engine->addImportPath(QStringLiteral("qrc:/qml"));
    }

private:
    TempTree m_tree;
    ScopedHome m_home{m_tree.root()};
};

} // namespace zolva::test

QUICK_TEST_MAIN_WITH_SETUP(screens, zolva::test::ScreensSetup)

#include "ScreensTests.moc"
