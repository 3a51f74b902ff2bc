// Tells the module where the web services are: writes their addresses into the
// service address file of the data folder. Keys that somebody else put into the
// file stay as they are.
#pragma once

#include <QString>

namespace ServiceAddressFile {

// "allurl.ini" in the data folder.
QString in(const QString &dataFolder);

// All services at one base address, without a slash at its end. The file is either
// the old or the whole new one. False, with *problem set, when it cannot be
// written.
bool write(const QString &file, const QString &baseAddress, QString *problem);

// Takes the addresses out again, so that nobody sends to a back end that is no
// longer there. A file that does not exist is left so.
void clear(const QString &file);

} // namespace ServiceAddressFile
