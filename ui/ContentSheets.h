// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "platform/Delay.h"
#include "ui/BatchScanReviewModel.h"
#include "ui/QuickPickModel.h"
#include "ui/ScanDraftItem.h"
#include "ui/SettingsModel.h"
#include "ui/SubscriptionDetailModel.h"
#include "ui/SubscriptionEditModel.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <deque>
#include <memory>
#include <optional>

namespace tovarin {

class Clock;
class LocalizationManager;
class Store;
class UserCalendar;
class UserDefaults;
class UserMonths;

/// The sheets of the main window: which one is open, and what it is about. There is one at a time:
/// one that opens by itself, such as that for what a scan has found, waits for its turn while
/// another is open.
///
/// The open sheet's model lives until the sheet is closed and the event loop has come round, so
/// that its screen can end before it.
class ContentSheets final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one there is.")
    Q_PROPERTY(Sheet sheet READ sheet NOTIFY sheetChanged FINAL)

public:
    enum class Sheet { None, Editor, Detail, QuickPick, BatchReview, Settings };
    Q_ENUM(Sheet)

    /// What the sheets work with; all of it must outlive them.
    struct Surroundings {
        Store &store;
        const Clock &clock;
        const UserCalendar &calendar;
        const UserMonths &months;
        LocalizationManager &loc;
        const ServiceLogo &logos;
        UserDefaults &defaults;
        Delay delay;
    };

    explicit ContentSheets(Surroundings surroundings, QObject *parent = nullptr);
    ~ContentSheets() override;

    /// The one that is open.
    Sheet sheet() const { return m_open.sheet; }

    /// Whether the sheet is open, or waits for its turn.
    bool showingQuickPick() const { return isWanted(Sheet::QuickPick); }
    bool showingBatchReview() const { return isWanted(Sheet::BatchReview); }
    bool showingSettings() const { return isWanted(Sheet::Settings); }

    /// Whether the editor is open for a new entry, and the draft that it began with.
    bool isAdding() const { return sheet() == Sheet::Editor && !m_open.existing; }
    std::optional<Subscription> prefillDraft() const { return m_open.draft; }

    /// The entry that is open in the editor, and the one that the detail shows.
    std::optional<Subscription> editingSub() const;
    std::optional<Subscription> detailSub() const;

    /// The drafts of the last scan that gave several, as the user left them in the review.
    const QList<ScanDraftItem> &batchScanItems() const { return m_batchScanItems; }

    /// Whether the quick pick was gone through or skipped once.
    bool didCompleteQuickPick() const;

    /// The model of the open sheet; null for the others.
    Q_INVOKABLE tovarin::SubscriptionEditModel *editor() const;
    Q_INVOKABLE tovarin::SubscriptionDetailModel *detail() const;
    Q_INVOKABLE tovarin::QuickPickModel *quickPick() const;
    Q_INVOKABLE tovarin::BatchScanReviewModel *batchReview() const;
    Q_INVOKABLE tovarin::SettingsModel *settings() const;

    /// The editor for a new entry; nothing while another sheet is open.
    Q_INVOKABLE void showEditor();

    /// The entry with this id; nothing when there is none, or while another sheet is open.
    Q_INVOKABLE void showDetail(const QString &id);

    /// Once each, now or when the others are closed.
    Q_INVOKABLE void showQuickPick();
    Q_INVOKABLE void showSettings();

    /// Closes the open sheet; nothing without one.
    Q_INVOKABLE void dismiss();

    /// Takes what a scan has found: a single draft goes to the editor, several to the review.
    void take(const QList<Subscription> &drafts);

    /// The main window has appeared, or has been shown again: opens the quick pick soon, until it
    /// was gone through or skipped once.
    void offerQuickPickIfNeeded();

    /// Another day has begun, or the calendar is another.
    void noticeDay();

Q_SIGNALS:
    void sheetChanged();

    /// The settings have stored another number of days.
    void remindDaysBeforeChanged();

    /// The settings want a test notification now.
    void testNotificationRequested();

private:
    /// A sheet, and what it is about.
    struct Request {
        Sheet sheet = Sheet::None;
        std::optional<Subscription> existing{}; ///< To change, or to show.
        std::optional<Subscription> draft{};
        QList<ScanDraftItem> items{};
    };

    bool isWanted(Sheet sheet) const;
    /// Whether the window is within the user's reach.
    bool isFree() const;
    void request(Request request);
    void openNext();
    void editShown();
    void follow(const QList<Subscription> &list);
    template <typename Model>
    Model *model(Sheet sheet) const;
    std::unique_ptr<QObject> makeModel();
    std::unique_ptr<QObject> makeEditor();
    std::unique_ptr<QObject> makeDetail();
    std::unique_ptr<QObject> makeQuickPick();
    std::unique_ptr<QObject> makeBatchReview();
    std::unique_ptr<QObject> makeSettings();

    Surroundings m_with;
    Request m_open;
    std::unique_ptr<QObject> m_model;
    std::deque<Request> m_waiting;
    QList<ScanDraftItem> m_batchScanItems;
    /// Between the detail and the editor that it leads to, no other sheet takes its turn.
    bool m_isHandingOver = false;
};

} // namespace tovarin
