#pragma once

// Lists of quantify method records in their XML form, as the method
// commands read and write them: METHODRECORD elements under one METHOD
// element.

#include <iosfwd>
#include <string>
#include <vector>

#include "kvdao/method/method_record.h"

namespace kvdao::cli {

// One document holding every record; false (with a message on `err`) when
// a record's XML cannot be built. `command` names the caller in messages.
bool MethodRecordsToXml(const std::vector<CMethodRecord>& records, std::string& xml, std::ostream& err,
                        const char* command);

// Every METHODRECORD element of the file (the document element itself or
// its children); fields an element leaves out keep their defaults. False,
// with a message, when the file is not XML or holds no record.
bool MethodRecordsFromXml(const std::string& path, std::vector<CMethodRecord>& records, std::ostream& err,
                          const char* command);

// Writes a new file beside the target and renames it over the target, so an
// existing file is never left half written.
bool WriteFileSafely(const std::string& path, const std::string& bytes, std::ostream& err, const char* command);

}  // namespace kvdao::cli
