// SPDX-License-Identifier: MIT
// Starting, hindering and killing the console.
#include "child.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace faults {
namespace {

void redirect(const fs::path& file, int descriptor) {
    const int opened = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (opened >= 0) ::dup2(opened, descriptor);
}

/// Root may write anywhere by one capability, which the program to be started goes without. As
/// another user it might not reach its own libraries.
bool obeyPermissions() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct rights[2]{};
    if (::syscall(SYS_capget, &header, rights) != 0) return false;
    rights[0].inheritable &= ~(1U << CAP_DAC_OVERRIDE);
    return ::syscall(SYS_capset, &header, rights) == 0 &&
           ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) == 0;
}

/// In the child, before the program starts.
void prepare(const Folder& folder, const Accident& accident) {
    if (::chdir(folder.path().c_str()) != 0) ::_exit(120);
    redirect("saida", 1);
    redirect("erros", 2);
    ::unsetenv("ZPFORJA2010");
    if (accident.largestFile >= 0) {
        // Without the signal a write beyond the limit fails, as on a full disk.
        ::signal(SIGXFSZ, SIG_IGN);
        const auto bytes = static_cast<rlim_t>(accident.largestFile);
        const rlimit limit{bytes, bytes};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) ::_exit(121);
    }
    if (!accident.failing.empty()) {
        ::setenv("LD_PRELOAD", HOUSE_FAILING, 1);
        ::setenv("FALHA", accident.failing.c_str(), 1);
        ::setenv("FALHA_CONTAS", "contas", 1);
    }
    if (accident.withoutRights && ::geteuid() == 0 && !obeyPermissions()) ::_exit(122);
}

}  // namespace

Folder::Folder() {
    std::string name = (fs::temp_directory_path() / "faults-XXXXXX").string();
    m_path = ::mkdtemp(name.data());
}

Folder::~Folder() {
    std::error_code error;
    fs::permissions(m_path, fs::perms::owner_all, error);
    fs::remove_all(m_path, error);
}

void put(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool canFail() {
#ifdef __SANITIZE_ADDRESS__
    return false;
#else
    return true;
#endif
}

long samples(long usual) {
    const char* const wanted = ::getenv("ACIDENTES");
    return wanted != nullptr ? std::atol(wanted) : usual;
}

Outcome runConsole(const Folder& folder, std::vector<std::string> arguments,
                   const Accident& accident) {
    const std::string program = std::string(HOUSE_BINARY_DIR) + "/bin/prancheta-console";
    arguments.insert(arguments.begin(), program);
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        prepare(folder, accident);
        ::execv(program.c_str(), argv.data());
        ::_exit(123);
    }
    if (child < 0) return {-1, "fork"};  // a signal to -1 would be one to everybody
    if (accident.killAfter >= 0) {
        ::usleep(static_cast<useconds_t>(accident.killAfter));
        ::kill(child, SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, bytesOf(folder / "erros")};
}

}  // namespace faults
