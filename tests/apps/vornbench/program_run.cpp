#include "tests/apps/vornbench/program_run.h"

#include "tests/support/temp_folder.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

ProgramRun runProgram(std::vector<std::string> const& arguments, std::filesystem::path const& folder)
{
    TempFolder const captured;
    std::string const out = (captured / "out").toUtf8();
    std::string const err = (captured / "err").toUtf8();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), O_WRONLY | O_CREAT, 0600);
    std::vector<char*> words;
    words.reserve(arguments.size() + 1);
    for (std::string const& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    pid_t process = 0;
    int const error = posix_spawnp(&process, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error("cannot start " + arguments[0]);
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    ProgramRun run;
    if (WIFEXITED(status))
        run.exitCode = WEXITSTATUS(status);
    else
        run.signal = WTERMSIG(status);
    run.out = captured.read("out");
    run.err = captured.read("err");
    return run;
}
