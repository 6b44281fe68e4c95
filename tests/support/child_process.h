// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace chimewell::test {

/// A program that runs beside a test and never outlives it: it ends with this object, and with the test's
/// process however that ends.
class ChildProcess {
public:
    /// `environment` replaces the test's own. What the program prints on standard error joins the test's.
    ChildProcess(const QString& program, const QStringList& arguments,
                 const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool isRunning() const { return process_.state() == QProcess::Running; }
    qint64 pid() const { return process_.processId(); }
    /// The first line of its standard output; empty when it ended or said nothing for ten seconds.
    QByteArray readLine();
    /// Sends `signal` to this one process.
    void raise(int signal) const;
    /// Ends it, by force if it does not obey, and waits.
    void stop();

private:
    QProcess process_;
};

}
