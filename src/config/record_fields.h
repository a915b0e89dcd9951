// The fields of the configuration record by name, as the data system spells them
// ("ALS_TYPE", "_QCMDPATH$"): for printing the record and for naming fields to change.
#pragma once

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "config/config_record.h"

namespace lumacfg {

using FieldRef = std::variant<Int16*, Int32*, double*, float*, std::string*, std::span<Int16>,
                              std::span<std::string>>;

struct RecordField {
    std::string_view name;
    FieldRef ref;
};

// Every field of the record, in the order of the record's definition.
std::vector<RecordField> RecordFields(ConfigRecord& record);

// The text of a field: numbers in plain decimal, arrays as their entries joined by blanks.
std::string FieldText(const FieldRef& ref);

// One NAME=VALUE line per field.
void PrintRecord(std::ostream& out, ConfigRecord& record);

}  // namespace lumacfg
