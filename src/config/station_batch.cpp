#include "config/station_batch.h"

#include "platform/services.h"

namespace lumacfg {

StationBatch::StationBatch() {
    platform::Profiles().BeginBatch();
    platform::TheRegistry().BeginBatch();
}

StationBatch::~StationBatch() {
    if (open_) End();
}

bool StationBatch::End() {
    open_ = false;
    // The profiles first: the station profile is the first file a save changes.
    const bool profilesWritten = platform::Profiles().EndBatch();
    const bool registryWritten = platform::TheRegistry().EndBatch();
    return profilesWritten && registryWritten;
}

}  // namespace lumacfg
