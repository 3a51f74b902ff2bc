// The rows of a data-driven test, each in one call: the columns' types are given once,
// and a row of other types does not compile.
#pragma once

#include <QTest>

template <class... Columns> class Rows
{
public:
    template <class... Names> explicit Rows(Names... names)
    {
        static_assert(sizeof...(Names) == sizeof...(Columns));
        (QTest::addColumn<Columns>(names), ...);
    }
    void operator()(const char *name, const Columns &...values) const
    {
        (QTest::newRow(name) << ... << values);
    }
};
