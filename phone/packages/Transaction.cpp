#include "phone/packages/Transaction.h"

#include "phone/eventkit/DurableFile.h"
#include "phone/packages/PackageError.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace phone {

namespace fs = std::filesystem;

namespace {

constexpr const char* stagingFolder = "Library/dpkg/unpacking";

[[noreturn]] void fail(const char* what, const fs::path& path) {
    throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

void check(int status, const char* what, const fs::path& path) {
    if (status != 0) {
        fail(what, path);
    }
}

bool isThere(const fs::path& path) {
    struct stat found{};
    return lstat(path.c_str(), &found) == 0;
}

bool isFolder(const fs::path& path) {
    struct stat found{};
    return lstat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

void writeFile(const fs::path& path, const TarEntry& entry) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0) {
        fail("cannot be written", path);
    }
    bool isWritten = true;
    for (std::size_t done = 0; done < entry.content.size() && isWritten;) {
        const ssize_t count = ::write(file, entry.content.data() + done, entry.content.size() - done);
        isWritten = count >= 0 || errno == EINTR;
        done += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    const timespec times[] = {{entry.modified, 0}, {entry.modified, 0}};
    // Whoever runs the phone stands for the owner on the device.
    isWritten = isWritten && fchmod(file, (entry.mode & 0777) | 0600) == 0;
    if (isWritten && entry.modified != 0) {
        futimens(file, times); // for the eye alone
    }
    const int why = errno;
    const bool isClosed = ::close(file) == 0;
    if (!isWritten || !isClosed) {
        errno = isWritten ? errno : why;
        fail("cannot be written", path);
    }
}

} // namespace

Transaction::Transaction(const fs::path& root, Existing) : _root(root), _folder(root / stagingFolder) {}

Transaction::Transaction(const fs::path& root) : Transaction(root, Existing{}) {
    _isFirst = !isThere(root / "Library");
    fs::create_directories(_folder / "new");
    fs::create_directories(_folder / "old");
}

Transaction::~Transaction() {
    if (!isThere(_folder / "plan")) {
        clear();
    }
}

fs::path Transaction::staged(const char* kind, std::size_t number) const {
    return _folder / kind / std::to_string(number);
}

void Transaction::add(Step::Kind kind, const fs::path& path, unsigned mode) {
    _steps.push_back({kind, path.lexically_relative(_root), mode});
}

void Transaction::makeFolder(const fs::path& folder, unsigned mode) {
    add(Step::Kind::MakeFolder, folder, (mode & 0777) | 0700);
}

void Transaction::place(const fs::path& path, const TarEntry& entry) {
    const fs::path file = staged("new", _steps.size());
    if (entry.kind == TarEntry::Kind::SymbolicLink) {
        check(::symlink(entry.target.c_str(), file.c_str()), "cannot be made", file);
    } else {
        writeFile(file, entry);
    }
    add(Step::Kind::Place, path);
}

void Transaction::placeHardLink(const fs::path& path, const fs::path& placed) {
    const auto target = std::find_if(_steps.begin(), _steps.end(), [&](const Step& step) {
        return step.kind == Step::Kind::Place && step.path == placed.lexically_relative(_root);
    });
    if (target == _steps.end()) {
        throw PackageError(path.string() + " is a link to a file that is not installed");
    }
    const fs::path file = staged("new", _steps.size());
    const fs::path first = staged("new", static_cast<std::size_t>(target - _steps.begin()));
    check(::link(first.c_str(), file.c_str()), "cannot be made", file);
    add(Step::Kind::Place, path);
}

void Transaction::remove(const fs::path& path) { add(Step::Kind::Remove, path); }

void Transaction::removeFolder(const fs::path& folder) {
    struct stat found{};
    check(lstat(folder.c_str(), &found), "cannot be removed", folder);
    add(Step::Kind::RemoveFolder, folder, found.st_mode & 0777);
}

void Transaction::writePlan() {
    std::ostringstream plan;
    for (Step& step : _steps) {
        const fs::path path = _root / step.path;
        step.hadOld = isThere(path);
        plan << static_cast<int>(step.kind) << ' ' << step.mode << ' ' << step.hadOld << ' ' << step.path.string()
             << '\n';
    }
    // Whole or not at all. What a cut of the power does to it no phone in a folder has to bear.
    TarEntry file;
    file.content = plan.str();
    writeFile(_folder / "planned", file);
    check(::rename((_folder / "planned").c_str(), (_folder / "plan").c_str()), "cannot be written", _folder / "plan");
}

void Transaction::readPlan() {
    std::istringstream plan(contentOf(_folder / "plan").value_or(""));
    for (std::string line; std::getline(plan, line);) {
        std::istringstream words(line);
        int kind = 0;
        Step step{};
        std::string path;
        words >> kind >> step.mode >> step.hadOld;
        std::getline(words.ignore(), path);
        if (!words || path.empty() || path.front() == '/' || path.starts_with("..")) {
            throw PackageError((_folder / "plan").string() + " cannot be read; an installation broke off there");
        }
        step.kind = static_cast<Step::Kind>(kind);
        step.path = path;
        _steps.push_back(std::move(step));
    }
}

void Transaction::make(std::size_t number) const {
    const Step& step = _steps[number];
    const fs::path path = _root / step.path;
    const fs::path old = staged("old", number);
    switch (step.kind) {
    case Step::Kind::MakeFolder:
        check(::mkdir(path.c_str(), step.mode), "cannot be made", path);
        check(::chmod(path.c_str(), step.mode), "cannot be made", path);
        break;
    case Step::Kind::Place:
        if (isFolder(path)) {
            errno = EISDIR;
            fail("cannot be replaced", path);
        }
        if (step.hadOld && ::link(path.c_str(), old.c_str()) != 0) {
            // Not every disk knows hard links.
            check(::rename(path.c_str(), old.c_str()), "cannot be replaced", path);
        }
        check(::rename(staged("new", number).c_str(), path.c_str()), "cannot be put into place", path);
        break;
    case Step::Kind::Remove:
        check(::rename(path.c_str(), old.c_str()), "cannot be removed", path);
        break;
    case Step::Kind::RemoveFolder:
        if (::rmdir(path.c_str()) != 0 && errno != ENOTEMPTY && errno != EEXIST && errno != ENOENT) {
            fail("cannot be removed", path);
        }
        break;
    }
}

void Transaction::takeBack(std::size_t number) const {
    const Step& step = _steps[number];
    const fs::path path = _root / step.path;
    const fs::path old = staged("old", number);
    switch (step.kind) {
    case Step::Kind::MakeFolder:
        if (::rmdir(path.c_str()) != 0 && errno != ENOENT && errno != ENOTEMPTY && errno != ENOTDIR) {
            fail("cannot be taken back", path);
        }
        break;
    case Step::Kind::Place:
    case Step::Kind::Remove:
        if (isThere(old)) {
            check(::rename(old.c_str(), path.c_str()), "cannot be put back", path);
        } else if (step.kind == Step::Kind::Place && !step.hadOld && !isThere(staged("new", number)) &&
                   ::unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) {
            fail("cannot be taken back", path);
        }
        break;
    case Step::Kind::RemoveFolder:
        if (::mkdir(path.c_str(), step.mode) == 0) {
            check(::chmod(path.c_str(), step.mode), "cannot be put back", path);
        } else if (errno != EEXIST) {
            fail("cannot be put back", path);
        }
        break;
    }
}

void Transaction::takeAllBack() {
    for (std::size_t number = _steps.size(); number > 0; --number) {
        takeBack(number - 1);
    }
    check(::unlink((_folder / "plan").c_str()), "cannot be removed", _folder / "plan");
}

void Transaction::clear() const {
    std::error_code ignored;
    fs::remove_all(_folder, ignored);
    ::rmdir(_folder.parent_path().c_str()); // only a first installation that failed leaves it empty
    if (_isFirst) {
        ::rmdir((_root / "Library").c_str());
    }
}

void Transaction::carryOut() {
    writePlan();
    try {
        for (std::size_t number = 0; number < _steps.size(); ++number) {
            make(number);
        }
        check(::unlink((_folder / "plan").c_str()), "cannot be removed", _folder / "plan");
    } catch (const fs::filesystem_error&) {
        takeAllBack();
        throw;
    }
}

bool Transaction::mend(const fs::path& root) {
    if (!isThere(root / stagingFolder)) {
        return false;
    }
    Transaction broken(root, Existing{});
    if (isThere(broken._folder / "plan")) {
        broken.readPlan();
        broken.takeAllBack();
    }
    return true;
}

} // namespace phone
