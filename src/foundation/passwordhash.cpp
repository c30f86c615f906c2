#include "passwordhash.h"
#include "storeerror.h"

#include <sodium.h>

namespace {
void initialise()
{
    static const bool ready = sodium_init() >= 0;
    if (!ready)
        throw StoreError(QStringLiteral("The password library could not start"));
}
}

namespace PasswordHash {

QString make(const QString &password)
{
    initialise();
    const QByteArray plain = password.toUtf8();
    char hashed[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(hashed, plain.constData(), quint64(plain.size()), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE)
        != 0)
        throw StoreError(QStringLiteral("Not enough memory to protect the password"));
    return QString::fromLatin1(hashed);
}

bool verify(const QString &stored, const QString &password)
{
    initialise();
    const QByteArray hash = stored.toLatin1();
    if (hash.isEmpty() || hash.size() >= crypto_pwhash_STRBYTES)
        return false;
    const QByteArray plain = password.toUtf8();
    return crypto_pwhash_str_verify(hash.constData(), plain.constData(), quint64(plain.size())) == 0;
}

}
