#include "FeedFixture.h"

namespace zolva::test {

// The feed's configuration is read as the model is made, and not again.
FeedFixture::FeedFixture(QObject* parent) : FeedFixture(TempTree(), parent) {}

FeedFixture::FeedFixture(const TempTree& feed, QObject* parent)
    : Fixture(ModelWorld::bundleWithFeed(feed.root()), parent)
{}

void FeedFixture::findNoUpdate()
{
    endCheck(UpToDate());
}

void FeedFixture::offerUpdate(const QString& version, const QString& notes)
{
    UpdateManifest offer{6, version.toStdString(), "https://example.org/get", std::nullopt};
    if (!notes.isEmpty()) {
        offer.notes = notes.toStdString();
    }
    endCheck(UpdateAvailable{offer});
}

void FeedFixture::failUpdateCheck(const QString& text)
{
    endCheck(UpdateCheckFailed{text.toStdString()});
}

void FeedFixture::endCheck(UpdateCheckResult result)
{
    finish(fakes().updateChecks, std::move(result), "an update check");
}

} // namespace zolva::test
