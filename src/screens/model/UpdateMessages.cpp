#include "screens/model/UpdateMessages.h"

#include "screens/model/ShownText.h"

#include <variant>

namespace zolva {

namespace {

QString noFeed()
{
    return QStringLiteral("This build has no update feed, so it will not check for updates.");
}

struct ResultText
{
    QString operator()(const UpdateNotConfigured& /*result*/) const { return noFeed(); }
    QString operator()(const UpToDate& /*result*/) const
    {
        return QStringLiteral(
            "Up to date. Checked daily, and verified before anything is offered.");
    }
    QString operator()(const UpdateAvailable& result) const
    {
        const UpdateManifest& offer = result.manifest;
        const QString text =
            QStringLiteral("Zolva ") + shownText(offer.version) + QStringLiteral(" is available.");
        return offer.notes ? text + QLatin1Char(' ') + shownText(*offer.notes) : text;
    }
    QString operator()(const UpdateCheckFailed& result) const { return shownText(result.text); }
};

QString messageOf(const UpdateState& state)
{
    if (state.switchedOff) {
        return QStringLiteral(
            "This build does not check for updates. They come the way Zolva was installed.");
    }
    if (!state.configured) {
        return noFeed();
    }
    if (state.checking) {
        return QStringLiteral("Checking for updates…");
    }
    return std::visit(ResultText(), state.result);
}

} // namespace

UpdateWords updateWords(const UpdateState& state)
{
    const QString message = messageOf(state);
    if (!state.configured) {
        return {.message = message};
    }
    if (std::holds_alternative<UpdateAvailable>(state.result)) {
        return {.message = message,
                .action = QStringLiteral("Download"),
                .isOffer = true,
                .canAct = true};
    }
    return {.message = message,
            .action = state.checking ? QStringLiteral("Checking…") : QStringLiteral("Check now"),
            .canAct = !state.checking};
}

} // namespace zolva
