// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "fuzz/Require.h"
#include "platform/ActivationRequest.h"
#include "scan/job/ScanMessages.h"

#include <algorithm>
#include <cstdint>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// The arguments of a call. Each line of the input is one address or one entry of the platform
/// data, and begins with a letter that says what follows:
///
/// - `u` an address in UTF-8, `w` one in UTF-16 (of which surrogate pairs may be broken);
/// - `s` a key, "=" and a text; `b`, `i`, `l` and `m` the same, and the value is the text's bytes,
///   its length, a list of it or a map with it.
struct Arguments {
    QStringList uris;
    QVariantMap platformData;
};

QString utf16(const QByteArray &bytes) {
    QString text;
    for (qsizetype at = 0; at + 1 < bytes.size(); at += 2)
        text += QChar(static_cast<uchar>(bytes[at]), static_cast<uchar>(bytes[at + 1]));
    return text;
}

QVariant valueOf(char kind, const QByteArray &bytes) {
    const QString text = QString::fromUtf8(bytes);
    switch (kind) {
    case 'b':
        return bytes;
    case 'i':
        return bytes.size();
    case 'l':
        return QStringList(text);
    case 'm':
        return QVariantMap({{text, text}});
    default:
        return text;
    }
}

Arguments argumentsIn(const QByteArray &input) {
    Arguments arguments;
    for (const QByteArray &line : input.split('\n')) {
        if (line.isEmpty())
            continue;
        const char kind = line.front();
        const QByteArray rest = line.mid(1);
        if (kind == 'u' || kind == 'w') {
            arguments.uris.append(kind == 'u' ? QString::fromUtf8(rest) : utf16(rest));
        } else {
            const qsizetype sign = std::max(rest.indexOf('='), qsizetype{0});
            arguments.platformData.insert(QString::fromUtf8(rest.first(sign)),
                                          valueOf(kind, rest.mid(sign + 1)));
        }
    }
    return arguments;
}

/// A token is a text of the caller's, and one that is there is found.
void checkToken(const QString &token, const QVariantMap &platformData) {
    QStringList given;
    for (const QLatin1StringView key : {"activation-token"_L1, "desktop-startup-id"_L1}) {
        const QVariant value = platformData.value(key);
        if (value.typeId() == QMetaType::QString && value != QVariant(QString()))
            given.append(value.toString());
    }
    require(given.isEmpty() ? token.isEmpty() : token == given.first());
}

/// What a scanner is asked to read is one line, whatever the file is called.
void checkFile(const QUrl &file) {
    require(file.isValid());
    if (!file.isLocalFile())
        return;
    const QByteArray line = ScanMessages::encodeRequest(file.toLocalFile());
    require(line.count('\n') == 1 && line.endsWith('\n'));
    require(ScanMessages::decodeRequest(line).has_value());
}

void check(const Arguments &arguments) {
    const ActivationRequest opening =
        ActivationRequest::toOpen(arguments.uris, arguments.platformData);
    require(opening.files.size() <= std::min(arguments.uris.size(), ActivationRequest::mostFiles));
    std::ranges::for_each(opening.files, checkFile);
    checkToken(opening.activationToken, arguments.platformData);

    const ActivationRequest activating = ActivationRequest::toActivate(arguments.platformData);
    require(activating.files.isEmpty());
    require(activating.activationToken == opening.activationToken);
}

} // namespace

} // namespace tovarin

/// What any program of the session may ask of the application over the bus.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    tovarin::check(tovarin::argumentsIn(input));
    return 0;
}
