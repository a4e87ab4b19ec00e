#include "peakmemory.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace coagulation::bench {

long PeakMemory::ofProgram(const QString& program, const QStringList& arguments, QString* errorString)
{
    // Everything the child needs is made before fork: after it only exec is safe in a Qt process.
    std::vector<QByteArray> strings;
    strings.push_back(program.toLocal8Bit());
    for (const QString& argument : arguments)
        strings.push_back(argument.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& s : strings)
        argv.push_back(s.data());
    argv.push_back(nullptr);

    const pid_t pid = fork();
    if (pid < 0) {
        *errorString = QStringLiteral("fork: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        return -1;
    }
    if (pid == 0) {
        execv(argv[0], argv.data());
        _exit(127);
    }

    int status = 0;
    rusage usage{};
    pid_t waited;
    do {
        waited = wait4(pid, &status, 0, &usage);
    } while (waited < 0 && errno == EINTR);
    if (waited < 0) {
        *errorString = QStringLiteral("wait4: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        return -1;
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        *errorString = QStringLiteral("%1 %2 failed (status %3)")
                           .arg(program, arguments.join(QLatin1Char(' ')))
                           .arg(status);
        return -1;
    }
    return usage.ru_maxrss; // KiB on Linux
}

} // namespace coagulation::bench
