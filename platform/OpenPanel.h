// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace tovarin {

/// The desktop's panel for choosing files to open. Folders cannot be chosen. A test puts one here
/// that answers by itself.
class OpenPanel {
public:
    enum class ContentType { png, jpeg, tiff, image, pdf };

    struct Request {
        QString message; ///< One line that says what to choose.
        bool allowMultiple = false;
        QList<ContentType> allowedContentTypes; ///< In the order of their importance.

        bool operator==(const Request &) const = default;
    };

    virtual ~OpenPanel() = default;

    /// Shows the panel and returns when it is closed: the files in the panel's own order, or none
    /// when the user cancels.
    virtual QList<QUrl> run(const Request &request) = 0;

    /// The file names that have one of the types, as patterns without repetition, in the order of
    /// the types: "*.[pP][nN][gG]". Spelt so that the case of a letter does not matter, since file
    /// panels differ in whether it does.
    static QStringList fileNamePatterns(const QList<ContentType> &types);

protected:
    OpenPanel() = default;
    OpenPanel(const OpenPanel &) = default;
    OpenPanel &operator=(const OpenPanel &) = default;
};

} // namespace tovarin
