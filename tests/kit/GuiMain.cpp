#include <QGuiApplication>
#include <QQuickWindow>
#include <QtPlugin>

#include <gtest/gtest.h>

Q_IMPORT_PLUGIN(Zolva_KitPlugin)

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
