// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// What the running instance has on the bus.

#include "platform/SingleInstance.h"
#include "tests/platform/InstancePeers.h"
#include "tests/platform/SingleInstanceTest.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QXmlStreamReader>

#include <memory>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using enum SingleInstance::Outcome;

TEST_F(SingleInstanceTest, AnswersTheCallsThatItCannotTakeAnyMoreWithErrors) {
    const Peer peer(bus.address());
    auto instance = std::make_unique<SingleInstance>(variables(onBus()));
    ASSERT_EQ(instance->claim({}), first);
    instance->start();
    QDBusPendingCall call = peer.send(u"Activate"_s, {QVariantMap()});
    // Once this one is answered, which takes no event loop, the other has arrived as well.
    const QDBusMessage ping = QDBusMessage::createMethodCall(
        Peer::name, Peer::path, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    ASSERT_EQ(peer.bus.call(ping).type(), QDBusMessage::ReplyMessage);
    instance.reset();
    // The caller that asks at once who is there now is not told of the old one.
    call.waitForFinished();
    EXPECT_FALSE(peer.isOwned());
    EXPECT_TRUE(call.isError());
}

TEST_F(SingleInstanceTest, KeepsTheCallsThatComeBeforeItsStart) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"1"_s)}), QString());
    EXPECT_EQ(peer.call(u"Open"_s, {QStringList({u"file:///a"_s, u"file:///b"_s}), token(u"2"_s)}),
              QString());
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"3"_s)}), QString());
    EXPECT_EQ(listener.told, QStringList());
    instance.start();
    EXPECT_EQ(listener.told, QStringList());
    EXPECT_TRUE(waitFor([&] { return listener.told.size() >= 3; }));
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"4"_s)}), QString());
    EXPECT_TRUE(waitFor([&] { return listener.told.size() >= 4; }));
    EXPECT_EQ(listener.told, QStringList({u"activated 1"_s, u"open 2 file:///a file:///b"_s,
                                          u"activated 3"_s, u"activated 4"_s}));
}

TEST_F(SingleInstanceTest, AnswersBeforeItsReceiverIsThrough) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    std::optional<QDBusPendingCall> call;
    bool isAnswered = false;
    QObject::connect(&instance, &SingleInstance::activated, &instance, [&](const QString &text) {
        if (text != u"1")
            return;
        // As a dialog does: it stays, and more arrives meanwhile.
        EXPECT_TRUE(waitFor([&] { return call->isFinished(); }));
        EXPECT_EQ(peer.call(u"Activate"_s, {token(u"2"_s)}), QString());
        EXPECT_TRUE(waitFor([&] { return listener.told.size() >= 2; }));
        isAnswered = true;
    });
    call = peer.send(u"Activate"_s, {token(u"1"_s)});
    EXPECT_TRUE(waitFor([&] { return isAnswered; }));
    EXPECT_FALSE(call->isError());
    EXPECT_EQ(listener.told, QStringList({u"activated 1"_s, u"activated 2"_s}));
}

TEST_F(SingleInstanceTest, TakesWhateverTheBusBrings) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    QStringList many;
    for (int i = 1; i <= 10001; ++i)
        many.append(u"file:///"_s + QString::number(i));
    const QVariantMap number{{u"activation-token"_s, 5}, {u"desktop-startup-id"_s, u"start"_s}};
    const QVariantMap empty{{u"activation-token"_s, QString()},
                            {u"desktop-startup-id"_s, u"start"_s}};
    const QVariantMap map{{u"activation-token"_s, QVariantMap{{u"a"_s, 1}}}};
    struct Case {
        QVariant uris;
        QVariant data;
        QString told;
    };
    const std::vector<Case> cases = {
        {QStringList(), token(u"t"_s), u"activated t"_s},
        {QStringList(), number, u"activated start"_s},
        {QStringList(), empty, u"activated start"_s},
        {QStringList(), map, u"activated "_s},
        {QStringList({QString(), u"http://[::"_s}), QVariantMap(), u"activated "_s},
        {QStringList({u"http://[::"_s, u"file:///a"_s, QString()}), QVariantMap(),
         u"open  file:///a"_s},
        {QStringList({u"https://example.org/"_s, u"file://host/a"_s, u"a b"_s, u"data:,x"_s}),
         QVariantMap(), u"open  https://example.org/ file://host/a a%20b data:,x"_s},
        {QStringList({u"file:///%FF%00"_s, u"file:///%zz"_s, u"file:///账单 1"_s}), QVariantMap(),
         u"open  file:///%FF%00 file:///%25zz file:///%E8%B4%A6%E5%8D%95%201"_s},
        {many, QVariantMap(), u"open  "_s + QStringList(many.first(10000)).join(u' ')},
    };
    for (const Case &odd : cases) {
        EXPECT_EQ(peer.call(u"Open"_s, {odd.uris, odd.data}), QString());
        EXPECT_TRUE(waitFor([&] { return !listener.told.isEmpty(); }));
        EXPECT_EQ(listener.told, QStringList(odd.told));
        listener.told.clear();
    }
}

TEST_F(SingleInstanceTest, DoesNothingForActionsAndUnknownCalls) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    const QString unknown = u"org.freedesktop.DBus.Error.UnknownMethod"_s;
    EXPECT_EQ(peer.call(u"ActivateAction"_s, {u"quit"_s, QVariantList({1, u"a"_s}), token(u"t"_s)}),
              QString());
    EXPECT_EQ(peer.call(u"ActivateAction"_s, {QString(), QVariantList(), QVariantMap()}),
              QString());
    EXPECT_EQ(peer.call(u"Quit"_s, {}), unknown);
    EXPECT_EQ(peer.call(u"Open"_s, {u"file:///a"_s, QVariantMap()}), unknown);
    EXPECT_EQ(peer.call(u"Activate"_s, {}), unknown);
    // What they had caused would have come before this.
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"last"_s)}), QString());
    EXPECT_TRUE(waitFor([&] { return !listener.told.isEmpty(); }));
    EXPECT_EQ(listener.told, QStringList(u"activated last"_s));
}

TEST_F(SingleInstanceTest, ShowsItsInterface) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    ASSERT_EQ(instance.claim({}), first);
    const QDBusPendingReply<QString> xml = peer.bus.asyncCall(QDBusMessage::createMethodCall(
        Peer::name, Peer::path, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s));
    ASSERT_TRUE(waitFor([&] { return xml.isFinished(); }));
    QStringList methods;
    QString current;
    QXmlStreamReader reader(xml.value());
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const auto value = [&](const QString &key) { return attributes.value(key).toString(); };
        if (reader.name() == u"interface")
            current = value(u"name"_s);
        else if (current != Peer::interface)
            continue;
        else if (reader.name() == u"method")
            methods.append(value(u"name"_s));
        else if (reader.name() == u"arg")
            methods.last() +=
                u", "_s + value(u"direction"_s) + u' ' + value(u"type"_s) + u' ' + value(u"name"_s);
        else if (reader.name() != u"annotation")
            methods.append(reader.name().toString());
    }
    EXPECT_FALSE(reader.hasError());
    EXPECT_EQ(methods, QStringList({u"Activate, in a{sv} platform_data"_s,
                                    u"Open, in as uris, in a{sv} platform_data"_s,
                                    u"ActivateAction, in s action_name, in av parameter, "
                                    "in a{sv} platform_data"_s}));
}

} // namespace tovarin
