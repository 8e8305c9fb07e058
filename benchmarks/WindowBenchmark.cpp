// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// What the main window costs the processor, drawn without a graphics card: a frame while its list
// is scrolled, another language, a change of the list and of its reminders.

#include "app/LocalizationManager.h"
#include "app/NotificationManager.h"
#include "model/Store.h"
#include "platform/NotificationMessages.h"
#include "platform/OpenPanel.h"
#include "platform/UserCalendar.h"
#include "platform/UserDefaults.h"
#include "platform/UserMonths.h"
#include "scan/job/ScanJob.h"
#include "ui/AppFonts.h"
#include "ui/BillScanModel.h"
#include "ui/BrandAssets.h"
#include "ui/ContentModel.h"
#include "ui/ContentSheets.h"
#include "ui/ImageProviders.h"
#include "ui/MainMenu.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QtPlugin>

#include <benchmark/benchmark.h>

Q_IMPORT_PLUGIN(TovarinPlugin)

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class NoPanel final : public OpenPanel {
public:
    QList<QUrl> run(const Request &) override { return {}; }
};

QList<Subscription> entries(int count, const Clock &clock) {
    static const QStringList names{u"Netflix"_s, u"晨跑俱乐部"_s, u"Lantern Photo Studio"_s,
                                   u"哔哩哔哩大会员"_s, u"A name that is longer than most are"_s};
    QList<Subscription> subs;
    for (int i = 0; i < count; ++i) {
        Subscription sub;
        sub.id = QUuid::createUuid();
        sub.name = names[i % names.size()] + u" %1"_s.arg(i);
        sub.amount = i % 97 + 0.99;
        sub.currency = i % 3 == 0 ? u"USD"_s : u"CNY"_s;
        sub.category = u"影音"_s;
        sub.startDate = clock.now() - std::chrono::hours(24 * (30 + i % 300));
        sub.isActive = i % 7 != 0;
        subs.append(sub);
    }
    return subs;
}

/// The main window with its list.
class Screen {
public:
    explicit Screen(int count) {
        m_store.addAll(entries(count, m_clock));
        m_engine.addImportPath(u"qrc:/"_s);
        addImageProviders(m_engine, m_bundle, BrandAssets(m_bundle), m_logos);
        m_engine.setInitialProperties({{u"content"_s, QVariant::fromValue(&m_content)},
                                       {u"bills"_s, QVariant::fromValue(&m_bills)},
                                       {u"sheets"_s, QVariant::fromValue(&m_sheets)},
                                       {u"menu"_s, QVariant::fromValue(&m_menu)},
                                       {u"visible"_s, true}});
        m_engine.load(QUrl(u"qrc:/Tovarin/Main.qml"_s));
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
        if (!m_window)
            qFatal("there is no window");
        QObject::connect(m_window, &QQuickWindow::frameSwapped, &m_loop, &QEventLoop::quit);
        // The first is without the entries.
        frame();
        frame();
        m_list = m_window->activeFocusItem();
    }

    /// Draws one frame, and everything that must happen before it.
    void frame() {
        m_window->update();
        m_loop.exec();
    }

    void scrollTo(qreal y) { m_list->setProperty("contentY", y); }
    Store &store() { return m_store; }
    qreal end() const { return m_list->property("contentHeight").toReal() - m_list->height(); }

private:
    QTemporaryDir m_folder;
    SystemClock m_clock;
    UserCalendar m_calendar = UserCalendar::current(processEnvironment());
    Bundle m_bundle{u":/resources"_s};
    ServiceLogo m_logos{m_bundle};
    Store m_store{m_folder.path(), m_clock, m_calendar};
    ContentModel m_content{m_store, m_clock, m_calendar, LocalizationManager::shared(), m_logos};
    ScanJob m_job{QString()};
    NoPanel m_panel;
    BillScanModel m_bills{m_job, m_panel};
    UserMonths m_months = UserMonths::current(processEnvironment());
    ContentSheets m_sheets{{m_store, m_clock, m_calendar, m_months, LocalizationManager::shared(),
                            m_logos, UserDefaults::standard(), eventLoopDelay()}};
    MainMenu m_menu{false};
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    QQuickItem *m_list = nullptr;
    // A real one: what is to be deleted later would pile up without.
    QEventLoop m_loop;
};

/// Every frame moves the list by so many points: 12 is a slow drag, 60 a turn of the wheel, 700 a
/// whole page of rows.
void scroll(benchmark::State &state) {
    Screen screen(static_cast<int>(state.range(0)));
    const auto step = static_cast<qreal>(state.range(1));
    qreal y = 0;
    for (auto _ : state) {
        y = y + step > screen.end() ? 0 : y + step;
        screen.scrollTo(y);
        screen.frame();
    }
}

BENCHMARK(scroll)->ArgsProduct({{100, 10'000}, {12, 60, 700}})->Unit(benchmark::kMillisecond);

/// The whole window in the other language, with its next frame.
void switchLanguage(benchmark::State &state) {
    Screen screen(static_cast<int>(state.range(0)));
    LocalizationManager &loc = LocalizationManager::shared();
    for (auto _ : state) {
        loc.setLang(loc.isZh() ? LocalizationManager::Lang::en : LocalizationManager::Lang::zh);
        screen.frame();
    }
}

/// One entry of the list is another, with the next frame; nothing is written to the disk.
void changeList(benchmark::State &state) {
    Screen screen(static_cast<int>(state.range(0)));
    QList<Subscription> subs = screen.store().subscriptions();
    for (auto _ : state) {
        subs.first().amount += 1;
        screen.store().setSubscriptions(subs);
        screen.frame();
    }
}

/// What a change of the list costs besides: its reminders, planned and written for the notifier.
void planReminders(benchmark::State &state) {
    const SystemClock clock;
    const UserCalendar calendar = UserCalendar::current(processEnvironment());
    const QList<Subscription> subs = entries(static_cast<int>(state.range(0)), clock);
    for (auto _ : state) {
        QList<NotificationMessages::Change> changes{NotificationMessages::RemoveAllPending()};
        for (const NotificationRequest &request :
             renewalReminders(subs, 3, clock.now(), calendar, false))
            changes.append(request);
        benchmark::DoNotOptimize(NotificationMessages::encodeChanges(changes).json.data());
    }
}

BENCHMARK(switchLanguage)->Arg(8)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(changeList)->Arg(8)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(planReminders)->Arg(8)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tovarin

int main(int argc, char **argv) {
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickStyle::setStyle(u"Basic"_s);
    const QGuiApplication application(argc, argv);
    tovarin::AppFonts::registerBundledFonts(tovarin::Bundle(u":/resources"_s));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
