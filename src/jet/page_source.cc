#include "page_source.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {

void ThrowDamaged(const std::string& what) {
  throw DaoException("The database file is damaged: " + what + " runs past its page or file.");
}

PageSource::PageSource(const std::string& path) {
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    throw DaoException("Could not find file '" + path + "': " + std::strerror(errno) + ".");
  }
  struct stat info {};
  if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
    ::close(fd);
    throw DaoException("'" + path + "' is not a database file.");
  }
  size_ = static_cast<std::size_t>(info.st_size);
  if (size_ > 0) {
    void* mapping = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, fd, 0);
    if (mapping == MAP_FAILED) {
      int error = errno;
      ::close(fd);
      throw DaoException("Could not read file '" + path + "': " + std::strerror(error) + ".");
    }
    ::madvise(mapping, size_, MADV_SEQUENTIAL);
    data_ = static_cast<const std::uint8_t*>(mapping);
    mapped_ = true;
  }
  ::close(fd);
  SetLayout(format::kJet4);
}

PageSource::PageSource(Bytes bytes) : data_(bytes.data()), size_(bytes.size()) {
  SetLayout(format::kJet4);
}

PageSource::~PageSource() {
  if (mapped_) ::munmap(const_cast<std::uint8_t*>(data_), size_);
}

void PageSource::SetLayout(const format::Layout& layout) {
  layout_ = &layout;
  page_count_ = static_cast<std::uint32_t>(size_ / layout.page_size);
}

void PageSource::Release(std::uint32_t first, std::uint32_t count) const noexcept {
  if (!mapped_ || count == 0) return;
  static const std::size_t system_page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  std::size_t begin = static_cast<std::size_t>(first) * layout_->page_size;
  std::size_t end = std::min(size_, begin + static_cast<std::size_t>(count) * layout_->page_size);
  begin = (begin + system_page - 1) / system_page * system_page;  // whole system pages inside the range
  end = end / system_page * system_page;
  if (begin >= end) return;
  ::madvise(const_cast<std::uint8_t*>(data_) + begin, end - begin, MADV_DONTNEED);
}

Bytes PageSource::Page(std::uint32_t n) const {
  if (n >= page_count_) {
    throw DaoException("The database file is damaged: page " + std::to_string(n) +
                       " lies outside the file (" + std::to_string(page_count_) + " pages).");
  }
  return {data_ + static_cast<std::size_t>(n) * layout_->page_size, layout_->page_size};
}

Bytes PageSource::Page(std::uint32_t n, std::uint8_t expected_type, const char* what) const {
  Bytes page = Page(n);
  if (page[0] != expected_type) {
    throw DaoException("The database file is damaged: page " + std::to_string(n) + " should hold " +
                       what + " but has page type " + std::to_string(page[0]) + ".");
  }
  return page;
}

}  // namespace kvdao::jet::internal
