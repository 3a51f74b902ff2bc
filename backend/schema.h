// The tables of the back end's database. A new table is one more step at the end of
// the list in schema.cpp; steps that stand there are never changed, because files
// that have taken them exist.
#pragma once

class Transaction;

// Takes the steps that the file has not taken yet. Throws DatabaseError, also for a
// file of a newer back end.
void upgradeSchema(Transaction &transaction);
