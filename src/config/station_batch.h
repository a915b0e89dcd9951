// The unit in which the station's files are written: every file that the changes inside the
// outermost batch touch (profile files and the registry store alike) is written once, after all
// of them are made in memory, when that batch ends.
#pragma once

namespace lumacfg {

class StationBatch {
  public:
    StationBatch();
    ~StationBatch();  // ends the batch when End was not called
    StationBatch(const StationBatch&) = delete;
    StationBatch& operator=(const StationBatch&) = delete;

    // Ends the batch. The outermost end writes; true when every file was written (the files
    // that were not are in platform::Failures()).
    bool End();

  private:
    bool open_ = true;
};

}  // namespace lumacfg
