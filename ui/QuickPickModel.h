// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServicePreset.h"
#include "catalog/ServiceRegion.h"
#include "ui/QuickPickCells.h"
#include "ui/QuickPickRows.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace tovarin {

class LocalizationManager;
class Store;
class UserDefaults;

/// A service that is ticked.
struct PickedService {
    ServicePreset preset;
    std::optional<QString> tierID;

    /// The tier that is chosen, or the first one where none of the preset's is. No value for a
    /// preset without tiers.
    std::optional<ServiceTier> tier(const ServicePreset &of) const;
};

/// Two steps in which many services of the catalog become subscriptions at once: the user ticks
/// services, then confirms what they cost. One is made each time the sheet opens; nothing reaches
/// the store but by saveAll(). It follows the store and the language while it is open.
class QuickPickModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes one when the sheet opens.")
    Q_PROPERTY(int step READ step NOTIFY stepChanged FINAL)
    Q_PROPERTY(int regionIndex READ regionIndex NOTIFY regionChanged FINAL)
    Q_PROPERTY(QList<QString> regionNames READ regionNames NOTIFY languageChanged FINAL)
    Q_PROPERTY(tovarin::QuickPickCells *cells READ cells CONSTANT FINAL)
    Q_PROPERTY(tovarin::QuickPickRows *rows READ rows CONSTANT FINAL)
    Q_PROPERTY(int count READ count NOTIFY confirmRowsChanged FINAL)
    Q_PROPERTY(bool canConfirm READ canConfirm NOTIFY selectedChanged FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY confirmRowsChanged FINAL)

public:
    /// The key under which the user defaults keep that the quick pick was gone through or skipped.
    static constexpr QStringView doneKey = u"didCompleteQuickPick";

    /// All but `onComplete`, which may be empty, must outlive the model.
    QuickPickModel(Store &store, const Clock &clock, const LocalizationManager &loc,
                   const ServiceLogo &logos, UserDefaults &defaults,
                   std::function<void()> onComplete, QObject *parent = nullptr);

    /// 1 to tick, 2 to confirm.
    int step() const { return m_step; }

    /// The list that is shown. What is ticked in the other one stays ticked.
    ServiceRegion region() const { return m_region; }
    void setRegion(ServiceRegion region);
    int regionIndex() const;
    QStringList regionNames() const;
    Q_INVOKABLE void chooseRegion(int index);

    /// What is ticked, by the preset's id.
    const QHash<QString, PickedService> &selected() const { return m_selected; }
    bool canConfirm() const { return !m_selected.isEmpty(); }

    /// Ticks it at its first tier, or takes the tick away.
    void toggle(const ServicePreset &preset);

    /// The same by the cell, but only where the cell can be pressed.
    Q_INVOKABLE void toggleCell(int cell);

    /// Chooses a tier of a ticked cell.
    Q_INVOKABLE void chooseTier(int cell, int tier);

    /// What a cell says that the service costs: "$15.49/mo"; "From $8/mo" for one of several tiers
    /// as long as it is not ticked, then the price of the chosen tier. Whatever is not charged by
    /// the month is said to be by the year, which is meant: the catalog has nothing else.
    QString cardPriceLabel(const ServicePreset &preset) const;

    /// What the tier picker calls a tier: "Plus · $20".
    QString tierPickerLabel(const ServiceTier &tier, const ServicePreset &preset) const;

    QuickPickCells *cells() { return &m_cells; }

    /// What is to be confirmed, in the order of the catalog, China's list first.
    const QList<ConfirmItem> &confirmRows() const { return m_rows.items(); }
    QuickPickRows *rows() { return &m_rows; }
    int count() const { return m_rows.rowCount(); }
    bool canSave() const { return count() > 0; }

    /// Makes the rows anew from what is ticked, and goes to step 2.
    Q_INVOKABLE void goConfirm();

    /// Goes to step 1, where everything still is ticked.
    Q_INVOKABLE void back();

    /// Nothing for a row that there is not.
    Q_INVOKABLE void setAmount(int row, double amount) { m_rows.setAmount(row, amount); }

    /// Appends what addable() leaves of the rows to the store, which saves once, and closes. Nobody
    /// is told of rows that are left out; onComplete is called only if some were added.
    Q_INVOKABLE void saveAll();

    /// Closes for good without adding anything.
    Q_INVOKABLE void skip();

    /// Those of `rows` that have a name of more than blanks, an amount above 0, and no namesake in
    /// `stored`, whatever the letters' case. Two namesakes among the rows are both left, which is
    /// meant.
    static QList<Subscription> addable(const QList<Subscription> &rows,
                                       const QList<Subscription> &stored);

Q_SIGNALS:
    void stepChanged();
    void regionChanged();
    void selectedChanged();
    void confirmRowsChanged();
    void languageChanged();

    /// The sheet is to close.
    void dismissed();

private:
    bool isZh() const;
    QString displayedName(const ServicePreset &preset) const;
    QuickPickCells::Cell cell(const ServicePreset &preset, const QStringList &storedNames) const;
    void showCells();
    void setStep(int step);
    void followLanguage();
    void finish();

    Store &m_store;
    const Clock &m_clock;
    const LocalizationManager &m_loc;
    const ServiceLogo &m_logos;
    UserDefaults &m_defaults;
    std::function<void()> m_onComplete;
    int m_step = 1;
    ServiceRegion m_region = ServiceRegion::china;
    QHash<QString, PickedService> m_selected;
    QuickPickCells m_cells;
    QuickPickRows m_rows;
};

} // namespace tovarin
