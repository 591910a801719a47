#include "removal/ReclaimSummary.h"
#include "screens/kit/SymbolImage.h"
#include "screens/model/NavItem.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace zolva {
namespace {

/// Each literal that the screens' sources use for a symbol, with the file it stands in.
QMap<QString, QString> namesInSources()
{
    // What is handed to something named like a symbol, but not what that is compared with; and
    // every text that can be nothing else.
    static const QRegularExpression named(
        QStringLiteral("\\b(?:name|icon|symbol):(?:[^\\n;\"]*=== \"[^\"]*\")*[^\\n;\"]*"
                       "\"([a-z0-9.]+)\""));
    static const QRegularExpression dotted(QStringLiteral("\"([a-z0-9]+(?:\\.[a-z0-9]+)+)\""));
    QMap<QString, QString> names;
    QDirIterator files(QStringLiteral(ZOLVA_SCREENS), {"*.qml", "*.h", "*.cpp"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            ADD_FAILURE() << qPrintable(file.fileName());
        const QString text = QString::fromUtf8(file.readAll());
        for (const QRegularExpression& rule : {named, dotted})
            for (const auto& match : rule.globalMatch(text))
                names.insert(match.captured(1), file.fileName());
    }
    return names;
}

} // namespace

TEST(SymbolNames, EachOneInTheScreensSourcesHasAnIcon)
{
    const QMap<QString, QString> names = namesInSources();
    EXPECT_GE(names.size(), 5);
    for (const QString& name : names.keys())
        EXPECT_TRUE(isSymbolKnown(name)) << qPrintable(name + " in " + names[name]);
}

TEST(SymbolNames, EachRowOfTheSidebarHasAnIcon)
{
    for (const NavItem& item : navItems)
        EXPECT_TRUE(isSymbolKnown(QString::fromUtf8(item.symbol))) << item.symbol;
}

TEST(SymbolNames, EachRowOfWhatCanBeReclaimedHasAnIcon)
{
    const std::vector<InstallerItem> installers;
    const std::vector<std::string> whitelist;
    for (const ReclaimRow& row : reclaimRows({.installers = installers, .whitelist = whitelist}))
        EXPECT_TRUE(isSymbolKnown(row.symbol)) << qPrintable(row.symbol);
}

} // namespace zolva
