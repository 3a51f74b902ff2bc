// Names for made-up people: Chinese ones with the frequencies of real surnames, so
// that the same name occurs more than once, and Latin, Arabic and Hebrew ones with
// the letters and lengths that break naive lists.
#pragma once

#include <QString>

struct SampleName
{
    QString name;
    QString spell;          // lower-case Latin letters and digits only
    bool isChinese = false; // then the surname stands first
};

// The same numbers give the same name. `male` decides the given name where it can.
SampleName sampleName(quint64 kind, quint64 surname, quint64 given, bool male);
