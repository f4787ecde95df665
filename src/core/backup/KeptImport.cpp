#include "core/backup/KeptImport.h"

#include "core/backup/Copies.h"

namespace sanovia {

KeptImport importKeepingDiary(const QByteArray& file, ImportOptions options) {
  KeptImport import{PreviewResult()};
  options.beforeStoring = [&import]() -> std::optional<FileError> {
    auto kept = keepDiary();
    const auto* error = std::get_if<FileError>(&kept);
    import.isUnsafe = error != nullptr;
    if (error != nullptr) return *error;
    import.kept = std::get<QString>(kept);
    return std::nullopt;
  };
  import.result = importBytes(file, options);
  return import;
}

}  // namespace sanovia
