// tests/project/killConvert.cpp
// Overwrites a file by "mrvcharacter convert" and kills that at seeded moments: the file must be the whole
// old or the whole new one, and at most one temporary file may be left beside it.
//   killConvert HOST MOMENTS SEED
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <poll.h>
#include <spawn.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int boneCount = 1000; // two megabytes, which are written in some 30 steps
constexpr int calibrationRuns = 3;
constexpr unsigned int firstSign = IN_CREATE | IN_MODIFY;
constexpr double beyondEnd = 1.2; // moments reach a little further than what they are to hit

std::string read(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return { std::istreambuf_iterator<char>(stream), {} };
}

pid_t start(std::vector<std::string> words)
{
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    pid_t process = -1;
    return posix_spawn(&process, argv[0], nullptr, nullptr, argv.data(), environ) == 0 ? process : -1;
}

bool hasSucceeded(pid_t process)
{
    int status = -1;
    return process > 0 && waitpid(process, &status, 0) == process && status == 0;
}

/// Tells when something happens in a folder; what is a mask of inotify.
class FolderWatch
{
public:
    FolderWatch(const fs::path& folder, unsigned int what) : _file(inotify_init1(IN_CLOEXEC))
    {
        inotify_add_watch(_file, folder.c_str(), what);
    }
    ~FolderWatch() { close(_file); }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    void wait() const
    {
        pollfd request{ _file, POLLIN, 0 };
        poll(&request, 1, 10000);
    }

private:
    int _file;
};

Seconds getMedian(std::vector<Seconds> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

class KillTest
{
public:
    KillTest(const char* host, unsigned int seed);
    ~KillTest() { fs::remove_all(_folder); }
    KillTest(const KillTest&) = delete;
    KillTest& operator=(const KillTest&) = delete;

    /// Makes the files and measures how long a conversion takes.
    bool prepare();
    /// Every second moment counts from the start, the others from the first sign of writing.
    bool killOnce(bool isInWriting);
    void report() const;

private:
    bool importTree(const char* rootName, const fs::path& file) const;
    pid_t startConvert() const { return start({ _host, "convert", "--threads", "1", _source, _target }); }
    bool checkTarget();
    bool checkOthers();

    std::string _host;
    std::mt19937 _random;
    fs::path _folder;
    fs::path _source;
    fs::path _oldFile;
    fs::path _place; ///< the folder in which nothing but the target lies
    fs::path _target;
    std::string _old;
    std::string _new;
    Seconds _wholeTime{ 0 };
    Seconds _writingTime{ 0 };
    int _oldCount = 0;
    int _newCount = 0;
    int _temporaryCount = 0;
};

KillTest::KillTest(const char* host, unsigned int seed) : _host(host), _random(seed)
{
    std::string folder = (fs::temp_directory_path() / "mrvKillXXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr)
        std::exit(2);
    _folder = folder;
    _source = _folder / "source.mvcf";
    _oldFile = _folder / "old.mvcf";
    _place = _folder / "place";
    _target = _place / "target.mvcf";
    fs::create_directory(_place);
}

bool KillTest::importTree(const char* rootName, const fs::path& file) const
{
    const fs::path table = _folder / "tree.csv";
    std::ofstream stream(table);
    stream << "index,name,parent,px,py,pz,qx,qy,qz,qw\n0," << rootName << ",-1,0,0,1,0,0,0,1\n";
    for (int i = 1; i < boneCount; ++i)
        stream << i << ",bone" << i << ',' << (i - 1) / 2 << ",0.1,0.2,0.3,0,0,0,1\n";
    stream.close();
    return hasSucceeded(start({ _host, "import", table, file }));
}

bool KillTest::prepare()
{
    if (!importTree("new", _source) || !importTree("old", _oldFile))
        return false;
    _old = read(_oldFile);
    std::vector<Seconds> wholeTimes;
    std::vector<Seconds> writingTimes;
    for (int i = 0; i < calibrationRuns; ++i)
    {
        fs::copy_file(_oldFile, _target, fs::copy_options::overwrite_existing);
        const FolderWatch begins(_place, firstSign);
        const FolderWatch ends(_place, IN_CLOSE_WRITE);
        const Clock::time_point start = Clock::now();
        const pid_t process = startConvert();
        begins.wait();
        const Clock::time_point writing = Clock::now();
        ends.wait();
        writingTimes.push_back(Clock::now() - writing);
        if (!hasSucceeded(process))
            return false;
        wholeTimes.push_back(Clock::now() - start);
    }
    _wholeTime = getMedian(wholeTimes);
    _writingTime = getMedian(writingTimes);
    _new = read(_target);
    std::printf("a conversion takes %.0f ms, %.1f ms of them for the writing\n", _wholeTime.count() * 1e3,
                _writingTime.count() * 1e3);
    return _old != _new && !_old.empty() && !_new.empty();
}

bool KillTest::checkTarget()
{
    const std::string content = read(_target);
    _oldCount += content == _old;
    _newCount += content == _new;
    if (content == _old || content == _new)
        return true;
    std::fprintf(stderr, "the target has %zu bytes that are neither the old nor the new file\n",
                 content.size());
    return false;
}

bool KillTest::checkOthers()
{
    int others = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(_place))
        if (entry.path() != _target)
        {
            ++others;
            fs::remove(entry.path());
        }
    _temporaryCount += others;
    if (others > 1)
        std::fprintf(stderr, "%d files are left beside the target\n", others);
    return others <= 1;
}

bool KillTest::killOnce(bool isInWriting)
{
    fs::copy_file(_oldFile, _target, fs::copy_options::overwrite_existing);
    const FolderWatch watch(_place, firstSign);
    const pid_t process = startConvert();
    if (process < 0)
        return false;
    if (isInWriting)
        watch.wait();
    const Seconds range = beyondEnd * (isInWriting ? _writingTime : _wholeTime);
    std::this_thread::sleep_for(std::uniform_real_distribution<double>(0, 1)(_random) * range);
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    const bool isTargetWhole = checkTarget();
    return checkOthers() && isTargetWhole;
}

void KillTest::report() const
{
    std::printf("%d moments left the old file, %d the new one; a temporary file was left by %d\n", _oldCount,
                _newCount, _temporaryCount);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    KillTest test(argv[1], static_cast<unsigned int>(std::atoi(argv[3])));
    if (!test.prepare())
    {
        std::fprintf(stderr, "the conversion fails without being killed\n");
        return 1;
    }
    bool isGood = true;
    for (int i = 0; i < std::atoi(argv[2]); ++i)
        isGood = test.killOnce(i % 2 != 0) && isGood;
    test.report();
    return isGood ? 0 : 1;
}
