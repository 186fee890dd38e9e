// A folder of its own on the real disk for each test.
#pragma once

#include "Test.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Of a path as the program has it, of any length.
inline std::filesystem::path PathOf(const std::string& path) {
  return LongPath(path);
}

inline void Put(const std::string& path, const std::string& content) {
  std::ofstream(PathOf(path), std::ios::binary) << content;
}

inline std::string Get(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(PathOf(path), std::ios::binary).rdbuf();
  return content.str();
}

// Removed with all it holds, also what may only be read.
class TempFolder {
 public:
  TempFolder() {
    static int number = 0;
    std::wstring temporary(MAX_PATH, L'\0');
    temporary.resize(GetTempPathW(MAX_PATH, temporary.data()));
    do {
      path_ = Narrow(temporary) + "tarnwell-" + std::to_string(GetCurrentProcessId()) + "-" +
              std::to_string(++number);
    } while (!std::filesystem::create_directory(PathOf(path_)));
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() { Remove(path_); }

  const std::string& Path() const { return path_; }
  // The parts of the name are joined by "/", as on other systems.
  std::string operator/(std::string name) const {
    std::ranges::replace(name, '/', '\\');
    return path_ + "\\" + name;
  }
  // The names in the folder, sorted, each followed by a blank.
  std::string Names() const {
    std::set<std::string> sorted;
    for (const auto& entry : std::filesystem::directory_iterator(PathOf(path_))) {
      sorted.insert(Narrow(entry.path().filename().native()));
    }
    std::string names;
    for (const std::string& name : sorted) names += name + " ";
    return names;
  }

  // Makes "folder/" and "file=content", and the folders they are in.
  void Make(const std::vector<std::string>& items) const {
    for (const std::string& item : items) {
      const std::size_t content = item.find('=');
      const std::string path = *this / item.substr(0, content);
      for (std::size_t end = path_.size(); (end = path.find('\\', end + 1)) != path.npos;) {
        CreateDirectoryW(LongPath(path.substr(0, end)).c_str(), nullptr);
      }
      if (content != item.npos) Put(path, item.substr(content + 1));
    }
  }

 private:
  static void Remove(const std::string& folder) {
    WIN32_FIND_DATAW found;
    const HANDLE finding = FindFirstFileW(LongPath(folder + "\\*").c_str(), &found);
    for (bool has = finding != INVALID_HANDLE_VALUE; has;
         has = FindNextFileW(finding, &found) != 0) {
      const std::string name = Narrow(found.cFileName), path = folder + "\\" + name;
      const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
      const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
      if (name == "." || name == "..") continue;
      SetFileAttributesW(LongPath(path).c_str(), FILE_ATTRIBUTE_NORMAL);
      if (isFolder && !isLink) {
        Remove(path);
      } else {
        isFolder ? RemoveDirectoryW(LongPath(path).c_str()) : DeleteFileW(LongPath(path).c_str());
      }
    }
    FindClose(finding);
    RemoveDirectoryW(LongPath(folder).c_str());
  }

  std::string path_;
};

}  // namespace tarnwell::platform
