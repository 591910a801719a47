// Draws the window's states into pictures:
//
//   screen-shots STAGE.qml FOLDER <LIST
//
// with a line of LIST for each: "NAME STATE THEME WIDTHxHEIGHT".

#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QLocale>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTextStream>

#include <cstdio>

namespace zolva::test {

namespace {

/// Everything that moves has come to rest by then, and what went is gone.
void settle()
{
    // Outside of an event loop nobody else sees to it.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 500) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
}

/// No picture of noise is small, and nobody would see it in one.
void hideNoise(const QQuickItem& item)
{
    const QList<QQuickItem*> children = item.childItems();
    for (QQuickItem* const child : children) {
        if (child->inherits("zolva::NoiseOverlay")) {
            child->setVisible(false);
        }
        hideNoise(*child);
    }
}

bool draw(QQuickView& view, const QStringList& words, const QString& folder)
{
    const QStringList size = words[3].split(QLatin1Char('x'));
    view.resize(size.front().toInt(), size.back().toInt());
    if (!QMetaObject::invokeMethod(view.rootObject(), "take", Q_ARG(QString, words[1]),
                                   Q_ARG(QString, words[2]))) {
        return false;
    }
    hideNoise(*view.rootObject());
    settle();
    const QImage image = view.grabWindow();
    return !image.isNull() && image.save(folder + QLatin1Char('/') + words[0] + ".png");
}

int drawAll(const QStringList& arguments)
{
    QQuickView view;
    view.engine()->addImportPath(QStringLiteral("qrc:/qml"));
    bool isSound = true;
    QObject::connect(view.engine(), &QQmlEngine::warnings, [&isSound] { isSound = false; });
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(QUrl::fromLocalFile(arguments.at(1)));
    if (view.status() != QQuickView::Ready) {
        return 1;
    }
    view.show();
    QTextStream list(stdin);
    for (QString line; list.readLineInto(&line);) {
        const QStringList words = line.split(QLatin1Char(' '));
        if (words.size() != 4 || !draw(view, words, arguments.at(2)) || !isSound) {
            std::fprintf(stderr, "screen-shots: %s\n", qPrintable(line));
            return 1;
        }
    }
    return 0;
}

} // namespace

} // namespace zolva::test

int main(int argc, char** argv)
{
    const zolva::test::TempTree tree;
    const zolva::test::ScopedHome home(tree.root());
    const QGuiApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    if (QCoreApplication::arguments().size() != 3) {
        std::fprintf(stderr, "usage: screen-shots STAGE.qml FOLDER <LIST\n");
        return 2;
    }
    return zolva::test::drawAll(QCoreApplication::arguments());
}
