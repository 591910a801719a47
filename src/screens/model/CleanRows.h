#pragma once

#include "files/ExclusionRules.h"

#include "screens/model/ListRows.h"

#include <QList>
#include <QQmlEngine>
#include <QString>

#include <cstdint>
#include <memory>
#include <string>

namespace zolva {

/// One line under an open category.
class PathLine
{
    Q_GADGET
    QML_VALUE_TYPE(pathLine)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString fullText MEMBER fullText)
    Q_PROPERTY(QString trailing MEMBER trailing)
    Q_PROPERTY(bool isSize MEMBER isSize)

public:
    QString text;     ///< the path, shortened
    QString fullText; ///< the whole path, for a tool tip
    QString trailing; ///< its size, or why it stays
    bool isSize = false;

    friend bool operator==(const PathLine&, const PathLine&) = default;
};

/// The categories as the Clean screen shows them, in its order. Main thread; the model outlives it.
class CleanRows final : public ListRows
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the CleanModel")

public:
    enum Trailing
    {
        Size,
        AllProtected,
        NeedsPassword
    };
    Q_ENUM(Trailing)

    enum OwnRole
    {
        TrailingKindRole = FirstOwnRole, ///< "trailingKind"
        DetailRole,                      ///< "detail": "S removable, P protected"
        OpenRole,                        ///< "open"
        LinesRole,                       ///< "lines": list of PathLine, of an open row alone
        MoreRole,                        ///< "more": "+ N smaller paths, also included", or empty
    };

    /// Under an open row.
    static constexpr std::size_t lineLimit = 15;

    explicit CleanRows(AppModel& model, QObject* parent = nullptr);

    /// The paths of all rows that stay, being protected or excluded.
    [[nodiscard]] std::int64_t protectedPaths() const;

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

protected:
    [[nodiscard]] Rows build() const override;
    [[nodiscard]] bool isPicked(const std::string& key) const override;
    [[nodiscard]] QVariant read(const ListRow& row, int role) const override;
    /// Also the rows of which nothing can go are counted.
    [[nodiscard]] bool isMeantByAll(const ListRow&) const override { return true; }

private:
    struct Row;

    void takeList();
    void followOpen();
    [[nodiscard]] bool isOpen(const ListRow& row) const;
    [[nodiscard]] static bool isRemovable(const CatPath& path, const ExclusionRules& rules);
    [[nodiscard]] static std::unique_ptr<Row> rowOf(Category category, const ExclusionRules& rules);
    [[nodiscard]] static Trailing trailingKind(const Row& row);
    [[nodiscard]] static QString trailing(const Row& row);
    [[nodiscard]] static QString detail(const Row& row);
    [[nodiscard]] QList<PathLine> lines(const Category& category) const;
    [[nodiscard]] static QString more(const Category& category);

    std::string m_open; ///< as it was told last; empty for none
};

} // namespace zolva
