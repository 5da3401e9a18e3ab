// What the sidebar's foot says about the disk.
#pragma once

#include "app/state/ScanState.h"
#include "views/base/AppStateReader.h"

#include <QString>

namespace brimlet {

class DiskSpace : public brimlet::AppStateReader { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool known READ known NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(double free READ free NOTIFY changed)
    Q_PROPERTY(double total READ total NOTIFY changed)
    Q_PROPERTY(double usedFraction READ usedFraction NOTIFY changed)
    Q_PROPERTY(bool low READ low NOTIFY changed)

public:
    bool known() const { return volume().has_value(); }
    QString name() const { return known() ? QString::fromStdString(volume()->name) : QString(); }
    double free() const { return known() ? static_cast<double>(volume()->availableForImportantUsage) : 0; }
    double total() const { return known() ? static_cast<double>(volume()->total) : 0; }
    double usedFraction() const; ///< 0 to 1
    bool low() const;            ///< less than a tenth is free

protected:
    void watch(AppState& state) override {
        connect(state.scan(), &ScanState::volumeChanged, this, &DiskSpace::changed);
    }

private:
    const std::optional<VolumeInfo>& volume() const;
};

} // namespace brimlet
