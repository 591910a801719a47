#pragma once

#include "Fixture.h"

#include "support/TempTree.h"

#include <QQmlEngine>
#include <QString>

namespace zolva::test {

/// The model of a build that has an update feed; that of `Fixture` has none. A check stays under
/// way until it is ended here.
class FeedFixture : public Fixture
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit FeedFixture(QObject* parent = nullptr);

    // The end of the newest check, by whomever it was begun; without any under way it throws.
    Q_INVOKABLE void findNoUpdate();
    /// Empty notes are none.
    Q_INVOKABLE void offerUpdate(const QString& version, const QString& notes = {});
    Q_INVOKABLE void failUpdateCheck(const QString& text);

private:
    FeedFixture(const TempTree& feed, QObject* parent);

    void endCheck(UpdateCheckResult result);
};

} // namespace zolva::test
