// Addresses as the web view takes them (RFC 3986). Pure; any thread.
#pragma once

#include <QString>

// `address` as UTF-8, with every byte but ASCII letters, digits and the characters
// _ ! ~ & ' ( ) * = , - . / : ; ? # $ @ written as "%" and two upper-case hexadecimal
// digits. A "%" is a byte like another: an encoded address is encoded again.
QString PercentEncode(const QString& address);
