// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/NotificationMessages.h"

#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin::NotificationMessages {

namespace {

NotificationRequest request(const QString &identifier) {
    return {.identifier = identifier,
            .title = u"t"_s,
            .body = u"b"_s,
            .presentation = PresentationOption::sound,
            .trigger = TimeIntervalTrigger{3s}};
}

const QByteArray requestJson =
    R"({"identifier":"a","title":"t","body":"b","presentation":["sound"],"milliseconds":3000})";

} // namespace

TEST(NotificationMessages, WriteChangesInTheirOrder) {
    EXPECT_EQ(encodeChanges({RemovePending{{}}, RemoveAllPending(), request(u"a"_s),
                             RemovePending{{u"x"_s, u"y"_s}}})
                  .json,
              R"([{"remove":[]},{"removeAll":true},{"add":)" + requestJson +
                  R"(},{"remove":["x","y"]}])");
    EXPECT_EQ(encodeChanges({}).json, "[]");
}

TEST(NotificationMessages, ReadWhatTheyWrite) {
    const QList<Change> changes{RemovePending{{}}, RemoveAllPending(), request(u"a"_s),
                                request(u"b"_s), RemovePending{{u"x"_s, u"y"_s}}};
    EXPECT_EQ(encodeChanges(changes).count, changes.size());
    EXPECT_EQ(decodeChanges(encodeChanges(changes).json), changes);
    EXPECT_EQ(decodeChanges("[]"), QList<Change>());
    const QList<NotificationRequest> requests{request(u"a"_s), request(u"b"_s)};
    EXPECT_EQ(decodeRequests(encodeRequests(requests)), requests);
    EXPECT_EQ(encodeRequests({request(u"a"_s)}), '[' + requestJson + ']');
}

TEST(NotificationMessages, ReadNothingFromAnythingElse) {
    for (const QByteArray json : {"",
                                  "x",
                                  "null",
                                  "{}",
                                  "1",
                                  "[1]",
                                  "[null]",
                                  "[[]]",
                                  "[{}]",
                                  "[",
                                  "[]x",
                                  R"([{"add":1}])",
                                  R"([{"add":{}}])",
                                  R"([{"removeAll":false}])",
                                  R"([{"removeAll":1}])",
                                  R"([{"remove":"x"}])",
                                  R"([{"remove":[1]}])",
                                  R"([{"remove":{}}])",
                                  R"([{"removeAll":true,"remove":[]}])",
                                  R"([{"other":true}])",
                                  R"([{"removeAll":true},{"remove":[null]}])",
                                  "[{\"remove\":[\"\xff\"]}]"})
        EXPECT_EQ(decodeChanges(json), std::nullopt) << json.toStdString();
    EXPECT_EQ(decodeChanges("[{\"add\":" + requestJson + "},{\"add\":{}}]"), std::nullopt);
    for (const QByteArray json : {"", "{}", "[1]", "[{}]", R"([{"add":{}}])"})
        EXPECT_EQ(decodeRequests(json), std::nullopt) << json.toStdString();
    EXPECT_EQ(decodeChanges(QByteArray(100'000, '[')), std::nullopt);
    EXPECT_EQ(decodeChanges("[{\"remove\":" + QByteArray(5000, '[') + QByteArray(5000, ']') + "}]"),
              std::nullopt);
}

TEST(NotificationMessages, AreOfSomeLength) {
    const QByteArray longest = "[" + QByteArray(longestChanges - 2, ' ') + "]";
    EXPECT_EQ(decodeChanges(longest), QList<Change>());
    EXPECT_EQ(decodeChanges(longest + ' '), std::nullopt);
}

TEST(NotificationMessages, TakeNoMoreThanHasRoom) {
    // All but the text is as long as this.
    const qsizetype around = encodeChanges({RemovePending{{QString()}}}).json.size();
    const QString full(longestChanges - around - 3, u'x');
    const RemovePending two{{}};
    const qsizetype lengthOfTwo = encodeChanges({two}).json.size() - 2;
    const RemovePending fits{{full.chopped(lengthOfTwo - 2)}};
    const EncodedChanges both = encodeChanges({fits, two, two});
    EXPECT_EQ(both.count, 2);
    EXPECT_EQ(both.json.size(), longestChanges);
    EXPECT_EQ(decodeChanges(both.json), (QList<Change>{fits, two}));
    const RemovePending tooLongForBoth{{full.chopped(lengthOfTwo - 3)}};
    EXPECT_EQ(encodeChanges({tooLongForBoth, two}).count, 1);
    const RemovePending tooLong{{full + u"xxxx"_s}};
    EXPECT_EQ(encodeChanges({two, tooLong}).count, 1);
    EXPECT_EQ(encodeChanges({tooLong, two}).count, 1) << "the notifier will say so";
}

} // namespace tovarin::NotificationMessages
