// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/detached_process.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace chimewell {

bool startDetached(const std::vector<std::string>& command, const std::filesystem::path& workingFolder,
                   const std::string& activationToken)
{
    if (command.empty()) return false;
    QStringList arguments;
    for (const std::string& word : command)
        arguments.append(QString::fromLocal8Bit(word));

    QProcess process;
    process.setProgram(arguments.takeFirst());
    process.setArguments(arguments);
    process.setWorkingDirectory(QFile::decodeName(workingFolder.c_str()));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name :
         {QStringLiteral("XDG_ACTIVATION_TOKEN"), QStringLiteral("DESKTOP_STARTUP_ID")}) {
        if (activationToken.empty())
            environment.remove(name);
        else
            environment.insert(name, QString::fromStdString(activationToken));
    }
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

}
