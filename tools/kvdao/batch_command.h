#pragma once

// kvdao batch: generic batch files and the batch status database. The
// sub-commands live in files of their own; this header is what they share.

#include <optional>
#include <string>

#include "cli.h"
#include "kvdao/genericbatch/generic_batch.h"

namespace kvdao::cli {

int RunBatchCommand(CommandContext& context);
int RunBatchShow(CommandContext& context);
int RunBatchSubmit(CommandContext& context);
int RunBatchStatus(CommandContext& context);

// The separator of section numbers in batch files ("[Sample:1:2]").
inline constexpr const char* kBatchSeparator = ":";

// Reads a batch file; reports a failure on context.err and returns false.
bool ReadBatchFile(CommandContext& context, const std::string& path, GenericBatch& batch);

// Removes "--name VALUE" from args and returns VALUE; nothing when absent.
std::optional<std::string> TakeOption(std::vector<std::string>& args, std::string_view name);

}  // namespace kvdao::cli
