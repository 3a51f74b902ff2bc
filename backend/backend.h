// The reference back end: the web services of the sample company over HTTPS on the
// loopback interface, with an SQLite file of its own. A library, so that tests can
// run it inside their process; friendui-backend is the program.
//
// start() serves on threads of its own; all functions are called from one thread.
#pragma once

#include "backend/certificate.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <string>

struct BackEndOptions
{
    // Certificate, database, uploaded files, passwords; made when missing, readable
    // by the owner only.
    QString dataFolder;
    int people = 300;
    quint64 seed = 1;
    int port = 0; // 0: any free one
    // The port on which tests script the answers; -1: off, 0: any free one.
    int controlPort = -1;
    // Employees of one more department, "D9000", for lists of any length; 0: none.
    int departmentSize = 0;
    // The sample company's virtual teams need approval; else what was said last counts.
    bool teamApproval = false;
    // External contacts that a user may have.
    int friendLimit = 500;
    // Service numbers besides those of the sample.
    int serviceNumbers = 0;
    // The own user has a virtual team of so many people, in groups of 25; 0: none.
    int teamSize = 0;
    // Serves with a certificate like this instead of the good one.
    std::optional<CertificateOptions> specialCertificate;
    // Takes a line per request and per failure, without secrets; from any thread.
    std::function<void(const std::string &line)> log;
};

class BackEnd
{
public:
    explicit BackEnd(const BackEndOptions &options);
    ~BackEnd();

    // False with *problem set when it cannot serve.
    bool start(QString *problem);
    void stop(); // drops what runs

    int port() const;
    int controlPort() const; // -1: off
    // Base address, such as "https://127.0.0.1:40123", without a slash at its end.
    QString address() const;
    QString caFile() const; // PEM, of the authority that signed the certificate
    // Of every sample user; random, made with the data folder.
    QString password() const;
    QString passwordFile() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
