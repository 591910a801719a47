#pragma once

#include "core/AppModel.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <array>
#include <cstdint>

namespace zolva {

/// The sum of the home screen, and its cards as rows. Main thread; the model outlives it.
class HomeModel final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    /// Nothing was scanned yet.
    Q_PROPERTY(bool isWelcome READ isWelcome NOTIFY changed)
    Q_PROPERTY(bool counting READ counting NOTIFY changed)
    Q_PROPERTY(QString heading READ heading NOTIFY changed)

public:
    enum Role
    {
        NameRole = Qt::UserRole + 1, ///< "name"
        SubRole,                     ///< "sub"
        SizeRole,                    ///< "size", as text
        MutedRole,                   ///< "muted"
        SymbolRole,                  ///< "symbol"
        GoRole,                      ///< "goTo", the screen's id
    };

    explicit HomeModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isWelcome() const;
    [[nodiscard]] bool counting() const;
    [[nodiscard]] QString heading() const;

    Q_INVOKABLE void scanAll();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void changed();

private:
    struct HomeCard
    {
        QString name;
        QString sub;
        QString size;
        bool muted = false;
        const char* go = nullptr;

        friend bool operator==(const HomeCard&, const HomeCard&) = default;
    };
    enum Place : std::size_t
    {
        CleanPlace,
        PurgePlace,
        InstallerPlace,
        UninstallPlace,
        CardCount
    };

    // Each adds up its part once per change, and tells it.
    void recountClean();
    void recountPurge();
    void recountInstallers();
    void recountApps();
    void setCard(Place place, const HomeCard& card);

    AppModel& m_model;
    std::array<HomeCard, CardCount> m_cards;
    std::int64_t m_cleanBytes = 0; ///< these are 0 where no scan is held
    std::int64_t m_purgeBytes = 0;
    std::int64_t m_installerBytes = 0;
};

} // namespace zolva
