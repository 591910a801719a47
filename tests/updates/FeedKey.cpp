#include "updates/FeedKey.h"

#include <QByteArray>

#include <sodium.h>

namespace zolva::test {

FeedKey::FeedKey(unsigned char number)
{
    static_assert(crypto_sign_PUBLICKEYBYTES == 32 && crypto_sign_SECRETKEYBYTES == 64);
    std::array<unsigned char, crypto_sign_SEEDBYTES> seed{};
    seed.fill(number);
    crypto_sign_seed_keypair(m_open.data(), m_secret.data(), seed.data());
}

std::string FeedKey::publicKey() const
{
    return base64({reinterpret_cast<const char*>(m_open.data()), m_open.size()});
}

std::string FeedKey::sign(std::string_view data) const
{
    std::string signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(reinterpret_cast<unsigned char*>(signature.data()), nullptr,
                         reinterpret_cast<const unsigned char*>(data.data()), data.size(),
                         m_secret.data());
    return base64(signature);
}

std::string base64(std::string_view bytes)
{
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())).toBase64().toStdString();
}

std::string fromBase64(std::string_view text)
{
    return QByteArray::fromBase64(QByteArray(text.data(), static_cast<qsizetype>(text.size())))
        .toStdString();
}

std::string manifestOf(int build)
{
    return R"({"build": )" + std::to_string(build) +
           R"(, "version": "1.2", "url": "https://example.org/get", "notes": "Faster."})" + "\n";
}

} // namespace zolva::test
