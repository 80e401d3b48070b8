#include "kvdao/platform/profile.h"

#include <sys/stat.h>

#include <cstdlib>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "ini_document.h"
#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/path.h"

namespace kvdao::platform {
namespace {

// What identifies one version of a file on disk.
struct Signature {
  bool exists = false;
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  long long modifiedNs = 0;
  bool operator==(const Signature&) const = default;
};

Signature SignatureOf(const std::string& nativePath) {
  struct stat info {};
  if (::stat(nativePath.c_str(), &info) != 0) return {};
  return {true, info.st_dev, info.st_ino, info.st_size,
          static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec};
}

// Parsed files by path, each with the signature it was parsed at.
class ProfileCache {
 public:
  static ProfileCache& Instance() {
    static ProfileCache cache;
    return cache;
  }

  std::shared_ptr<const IniDocument> Get(const std::string& path) {
    std::string native = ToNativePath(path);
    Signature now = SignatureOf(native);
    {
      std::lock_guard<std::mutex> lock(mutex_);
      auto found = entries_.find(native);
      if (found != entries_.end() && found->second.signature == now) return found->second.document;
    }
    auto document = std::make_shared<const IniDocument>(Load(native, now));
    std::lock_guard<std::mutex> lock(mutex_);
    // A file that changes within the clock's resolution while staying the
    // same size would look unchanged; a small cache bound keeps long-running
    // processes that touch many files lean.
    if (entries_.size() > 256) entries_.clear();
    entries_[native] = {now, document};
    return document;
  }

  // Serialises writers, so that two writes of one process never lose each
  // other's key.
  std::mutex& WriteMutex() { return writeMutex_; }

 private:
  static IniDocument Load(const std::string& native, const Signature& signature) {
    if (!signature.exists) return IniDocument();
    std::string text;
    if (!ReadFileContents(native, text)) return IniDocument();
    return IniDocument(text);
  }

  struct Entry {
    Signature signature;
    std::shared_ptr<const IniDocument> document;
  };
  std::mutex mutex_;
  std::mutex writeMutex_;
  std::unordered_map<std::string, Entry> entries_;
};

std::string_view OrEmpty(const char* text) { return text != nullptr ? text : ""; }

}  // namespace

// One file held by a ProfileSnapshot; the pins of a thread form a stack.
struct ProfileSnapshot::Pin {
  std::string path;
  std::shared_ptr<const IniDocument> document;
  Pin* previous = nullptr;
};

namespace {

thread_local ProfileSnapshot::Pin* tl_pins = nullptr;

ProfileSnapshot::Pin* PinOf(const std::string& path) {
  for (ProfileSnapshot::Pin* pin = tl_pins; pin != nullptr; pin = pin->previous) {
    if (pin->path == path) return pin;
  }
  return nullptr;
}

// The parsed file: a snapshot's when this thread holds one, else the cache's.
std::shared_ptr<const IniDocument> Document(const std::string& path) {
  if (ProfileSnapshot::Pin* pin = PinOf(path)) return pin->document;
  return ProfileCache::Instance().Get(path);
}

}  // namespace

ProfileSnapshot::ProfileSnapshot(const std::string& path)
    : pin_(new Pin{path, Document(path), tl_pins}) {
  tl_pins = pin_;
}

ProfileSnapshot::~ProfileSnapshot() {
  tl_pins = pin_->previous;
  delete pin_;
}

std::string GetPrivateProfileString(const char* section, const char* key,
                                    const char* defaultValue, const std::string& path) {
  if (section != nullptr && key != nullptr) {
    auto document = Document(path);
    if (auto value = document->Find(section, key)) return std::string(*value);
  }
  return std::string(OrEmpty(defaultValue));
}

std::string GetPrivateProfileString(const char* section, const char* key,
                                    const char* defaultValue, std::size_t bufferSize,
                                    const std::string& path) {
  std::string value = GetPrivateProfileString(section, key, defaultValue, path);
  if (bufferSize == 0) return std::string();
  if (value.size() > bufferSize - 1) value.resize(bufferSize - 1);
  return value;
}

int GetPrivateProfileInt(const char* section, const char* key, int defaultValue,
                         const std::string& path) {
  if (section == nullptr || key == nullptr) return defaultValue;
  auto document = Document(path);
  auto value = document->Find(section, key);
  if (!value) return defaultValue;
  std::string_view text = *value;
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  unsigned base = 10;
  if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
    base = 16;
    text.remove_prefix(2);
  }
  std::uint32_t result = 0;
  for (char c : text) {
    unsigned digit;
    if (c >= '0' && c <= '9') {
      digit = static_cast<unsigned>(c - '0');
    } else if (base == 16 && c >= 'a' && c <= 'f') {
      digit = static_cast<unsigned>(c - 'a' + 10);
    } else if (base == 16 && c >= 'A' && c <= 'F') {
      digit = static_cast<unsigned>(c - 'A' + 10);
    } else {
      break;
    }
    result = result * base + digit;
  }
  if (negative) result = 0u - result;
  return static_cast<int>(result);
}

std::vector<std::string> GetPrivateProfileKeys(const char* section, const std::string& path) {
  if (section == nullptr) return {};
  return Document(path)->Keys(section);
}

std::vector<std::string> GetPrivateProfileSectionNames(const std::string& path) {
  return Document(path)->SectionNames();
}

std::size_t GetPrivateProfileSectionCount(const std::string& path) {
  return Document(path)->SectionCount();
}

bool WritePrivateProfileString(const char* section, const char* key, const char* value,
                               const std::string& path) {
  if (section == nullptr) return false;
  ProfileCache& cache = ProfileCache::Instance();
  std::lock_guard<std::mutex> lock(cache.WriteMutex());
  IniDocument document = *cache.Get(path);
  document.Set(section, key, value);
  if (!ReplaceFileContents(path, document.Text())) return false;
  if (PinOf(path) != nullptr) {
    auto written = std::make_shared<const IniDocument>(std::move(document));
    for (ProfileSnapshot::Pin* pin = tl_pins; pin != nullptr; pin = pin->previous) {
      if (pin->path == path) pin->document = written;
    }
  }
  return true;
}

}  // namespace kvdao::platform
