#include "updates/UpdateManifest.h"

#include "platform/Utf8Text.h"
#include "json/JsonReader.h"

#include <nlohmann/json.hpp>

#include <QString>
#include <QUrl>

namespace zolva {

std::optional<UpdateManifest> decodedManifest(std::string_view json)
{
    std::string failure;
    const std::optional<nlohmann::json> document = parseJson(json, failure);
    if (!document) {
        return std::nullopt;
    }
    const JsonReader reader(*document, failure);
    UpdateManifest manifest;
    manifest.build = reader.whole("build");
    manifest.version = reader.text("version");
    manifest.url = reader.text("url");
    manifest.notes = reader.optionalText("notes");
    return failure.empty() ? std::optional(std::move(manifest)) : std::nullopt;
}

bool isSafeDownloadURL(std::string_view text)
{
    if (!isUtf8(text)) {
        return false;
    }
    const QUrl url(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())),
                   QUrl::StrictMode);
    return url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty();
}

} // namespace zolva
