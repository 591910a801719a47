#include "screens/model/MenuCommands.h"

#include <QKeySequence>

#include <array>

namespace zolva {

namespace {

struct Command
{
    const char* symbol;
    const char* title;
    const char* keys; ///< empty without
    MenuCommands::Deed deed;
};

constexpr std::array<Command, 4> commands{{
    {"macwindow", "Open Zolva", "Ctrl+O", MenuCommands::Deed::Open},
    {"waveform.path.ecg", "Status", "", MenuCommands::Deed::Status},
    {"gearshape", "Settings", "Ctrl+,", MenuCommands::Deed::Settings},
    {"power", "Quit Zolva", "Ctrl+Q", MenuCommands::Deed::Quit},
}};

} // namespace

MenuCommands::MenuCommands(QObject* parent) : QAbstractListModel(parent) {}

MenuCommands::Deed MenuCommands::deedOf(int row)
{
    return commands.at(static_cast<std::size_t>(row)).deed;
}

int MenuCommands::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(commands.size());
}

QVariant MenuCommands::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Command& command = commands.at(static_cast<std::size_t>(index.row()));
    const QString keys = QString::fromUtf8(command.keys);
    switch (role) {
    case SymbolRole:
        return QString::fromUtf8(command.symbol);
    case TitleRole:
        return QString::fromUtf8(command.title);
    case KeysRole:
        return keys;
    case ShortcutRole:
        // "⌘O" where there is such a key, "Ctrl+O" where that is the one to press.
        return QKeySequence(keys).toString(QKeySequence::NativeText);
    default:
        return {};
    }
}

QHash<int, QByteArray> MenuCommands::roleNames() const
{
    return {{SymbolRole, "symbol"},
            {TitleRole, "title"},
            {KeysRole, "keys"},
            {ShortcutRole, "shortcut"}};
}

} // namespace zolva
