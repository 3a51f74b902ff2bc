// The tables of the local database that the plug-in reads and writes.
#pragma once

#include "common/sqlitetables.h"

namespace LocalTables {

// The settings of conversations, which the host reads, too.
const SqliteTable &sessionSetting();

const QVector<SqliteTable> &all();

} // namespace LocalTables
