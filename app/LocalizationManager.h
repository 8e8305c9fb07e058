// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>

#include <array>
#include <functional>

namespace tovarin {

class UserDefaults;

/// Decides between the Chinese and the English version of every text. The program keeps no string
/// tables: each text stands as a pair at its place of use, chosen by isZh() when it is produced.
/// For the main thread only.
class LocalizationManager final : public QObject {
    Q_OBJECT
    Q_PROPERTY(Lang lang READ lang WRITE setLang NOTIFY langDidChange)
    Q_PROPERTY(bool isZh READ isZh NOTIFY langDidChange)

public:
    /// The user's setting. Its values, in the order a picker offers them, are `allLangs`.
    enum class Lang { system, en, zh };
    Q_ENUM(Lang)

    static constexpr std::array allLangs = {Lang::system, Lang::en, Lang::zh};

    /// Tells the user's preferred languages, best first, as language tags.
    using PreferredLanguages = std::function<QStringList()>;

    /// The one instance the program uses, made on first use from the standard user defaults and the
    /// process environment.
    static LocalizationManager &shared();

    /// Reads the setting and writes nothing. `defaults` must outlive the manager.
    LocalizationManager(UserDefaults &defaults, PreferredLanguages preferredLanguages);

    Lang lang() const { return m_lang; }

    /// Tells the observers, takes the new setting, and stores it at once, also when it is the old
    /// one again.
    void setLang(Lang lang);

    /// Whether texts are to be Chinese. Asked anew each time: with `system`, the first preferred
    /// language counts, and any variant of Chinese is Chinese.
    bool isZh() const;

    /// The text under which a setting is stored: "system", "en" or "zh".
    static QString rawValue(Lang lang);

    /// The setting stored under a text; unknown texts are `system`.
    static Lang langOf(const QString &rawValue);

Q_SIGNALS:
    void langWillChange();
    void langDidChange();

private:
    UserDefaults &m_defaults;
    PreferredLanguages m_preferredLanguages;
    Lang m_lang;
};

} // namespace tovarin
