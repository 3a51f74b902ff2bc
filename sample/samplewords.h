// The word lists of the sample company.
#pragma once

#include <QString>
#include <QVector>

struct SampleDivision
{
    const char *name;
    int weight; // share of the departments
    const char *departments[6];
    const char *duties[6];
};

const QVector<SampleDivision> &sampleDivisions();

QString sampleSignature(quint64 number);
QString sampleCity(quint64 number);
QString sampleRemark(quint64 number);
