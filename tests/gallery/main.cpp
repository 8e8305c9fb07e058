// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// gallery [FOLDER]: shows every control and row, or leaves pictures of them in the folder, in both
// languages.

#include "app/LocalizationManager.h"
#include "catalog/ServiceCatalog.h"
#include "model/Store.h"
#include "tests/gallery/Pictures.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Samples.h"
#include "ui/AppFonts.h"
#include "ui/BrandAssets.h"
#include "ui/ContentModel.h"
#include "ui/ImageProviders.h"

#include <QDir>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QQuickView>
#include <QTemporaryDir>
#include <QtPlugin>

#include <cstdio>

Q_IMPORT_PLUGIN(TovarinPlugin)

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using Lang = LocalizationManager::Lang;

QList<Subscription> rows() {
    QList<Subscription> subs;
    const auto add = [&subs](const QString &name) -> Subscription & {
        subs.append(sampleSubscription(name));
        subs.last().startDate = instant("2025-05-20T00:00:00Z");
        return subs.last();
    };
    add(u"Netflix"_s).currency = u"USD"_s;
    add(u"哔哩哔哩大会员"_s).cycle = BillingCycle::yearly;
    Subscription &today = add(u"Charged on this very day"_s);
    today.startDate = instant("2025-05-10T01:00:00Z");
    Subscription &week = add(u"晨跑俱乐部"_s);
    week.cycle = BillingCycle::weekly;
    week.amount = 15;
    add(QString());
    add(u"A name so long that no row has a place for all of it, whatever its width may be"_s)
        .amount = 123'456'789.5;
    add(u"名字很长的订阅服务一直写到行尾也写不完所以要用省略号来收尾因为没有那么宽的窗口"_s)
        .category = u"影音"_s;
    Subscription &once = add(u"Lantern Photo Studio"_s);
    once.billingType = BillingType::oneTime;
    once.startDate = instant("2025-07-01T00:00:00Z");
    Subscription &past = add(u"No date ahead"_s);
    past.billingType = BillingType::oneTime;
    past.startDate = instant("2020-01-01T00:00:00Z");
    add(u"Spotify"_s).isActive = false;
    Subscription &paused = add(u"Tramline Arcade"_s);
    paused.isActive = false;
    paused.billingType = BillingType::oneTime;
    return subs;
}

QVariantList presets(const ServiceLogo &logos) {
    QVariantList list;
    for (const ServicePreset &preset : ServiceCatalog::china() + ServiceCatalog::global())
        list.append(
            QVariantMap{{u"icon"_s, preset.icon},
                        {u"logoID"_s, logos.image(preset.id).isNull() ? QString() : preset.id}});
    return list;
}

QStringList symbols(const Bundle &bundle) {
    QStringList names;
    for (const QString &path : bundle.paths(u"svg"_s, u"Symbols"_s))
        names.append(QFileInfo(path).completeBaseName());
    return names;
}

/// The pages of the gallery, each in a window of its own size.
class Gallery {
public:
    Gallery() {
        m_engine.addImportPath(u"qrc:/"_s);
        addImageProviders(m_engine, m_bundle, BrandAssets(m_bundle), m_logos);
        m_store.addAll(rows());
    }

    std::unique_ptr<QQuickView> open(const QString &page) {
        auto view = std::make_unique<QQuickView>(&m_engine, nullptr);
        if (page == u"Rows") {
            view->setInitialProperties(
                {{u"subscriptions"_s, QVariant::fromValue(m_content.subscriptions())},
                 {u"charges"_s, QVariant::fromValue(m_content.upcoming())},
                 {u"dueCount"_s, m_content.dueCount()}});
        } else if (page == u"Icons") {
            view->setInitialProperties(
                {{u"presets"_s, presets(m_logos)}, {u"symbols"_s, symbols(m_bundle)}});
        }
        view->setColor(QColor(15, 15, 17));
        view->setTitle(page);
        view->setSource(QUrl(u"qrc:/Gallery/%1Page.qml"_s.arg(page)));
        if (view->status() != QQuickView::Ready)
            qFatal("the page %s does not load", qPrintable(page));
        view->show();
        return view;
    }

private:
    QTemporaryDir m_folder;
    ManualClock m_clock{instant("2025-06-10T01:00:00Z")};
    UserCalendar m_calendar = calendarIn("Asia/Shanghai");
    Bundle m_bundle{u":/resources"_s};
    ServiceLogo m_logos{m_bundle};
    Store m_store{m_folder.path(), m_clock, m_calendar};
    ContentModel m_content{m_store, m_clock, m_calendar, LocalizationManager::shared(), m_logos};
    QQmlEngine m_engine;
};

const QStringList pages{u"Controls"_s, u"Rows"_s, u"Icons"_s};

bool save(const QImage &image, const QDir &folder, const QString &name) {
    const QString path = folder.filePath(name + u".png"_s);
    std::puts(qPrintable(path));
    return image.save(path);
}

bool savePictures(const QDir &folder) {
    bool saved = true;
    for (const Lang lang : {Lang::en, Lang::zh}) {
        const LanguageScope language(lang);
        const QString ending = lang == Lang::zh ? u"-zh"_s : u"-en"_s;
        Gallery gallery;
        for (const QString &page : pages) {
            const std::unique_ptr<QQuickView> view = gallery.open(page);
            if (page == u"Controls") {
                saved &= save(gallery::pictureOfStates(*view), folder, u"controls"_s + ending);
                view->resize(480, 420);
                saved &= save(gallery::pictureOfSheet(*view), folder, u"sheet"_s + ending);
            } else {
                saved &= save(gallery::picture(*view), folder, page.toLower() + ending);
            }
        }
    }
    return saved;
}

} // namespace

} // namespace tovarin

int main(int argc, char **argv) {
    using namespace tovarin;

    // The gallery changes the language; the user's own settings are none of its business.
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickStyle::setStyle(u"Basic"_s);
    const bool toFiles = argc > 1;
    if (toFiles)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    AppFonts::registerBundledFonts(Bundle(u":/resources"_s));
    if (toFiles) {
        const QDir folder(QString::fromLocal8Bit(argv[1]));
        return folder.mkpath(u"."_s) && savePictures(folder) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    Gallery gallery;
    std::vector<std::unique_ptr<QQuickView>> views;
    for (const QString &page : pages)
        views.push_back(gallery.open(page));
    return QGuiApplication::exec();
}
