#pragma once
#include <QString>

// Passwords are kept only as salted argon2id hashes; the program checks them, never the store's SQL.
namespace PasswordHash {

// A new hash of `password` with a salt of its own: two users with one password get different hashes.
// Throws StoreError when the machine cannot spare the memory the hash needs.
QString make(const QString &password);
// True when `password` is the one `stored` was made from; false for anything that is not such a hash.
bool verify(const QString &stored, const QString &password);

}
