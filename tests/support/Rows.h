#pragma once

#include <QTest>

/// The table of a data-driven test: names its columns once, then takes a row a call. A cell of a
/// QString column may be a UTF-8 literal.
template <typename... Columns>
class Rows
{
public:
    template <typename... Names>
    explicit Rows(Names... names)
    {
        static_assert(sizeof...(Names) == sizeof...(Columns));
        (QTest::addColumn<Columns>(names), ...);
    }

    template <typename... Cells>
    void operator()(const char *name, const Cells &...cells) const
    {
        static_assert(sizeof...(Cells) == sizeof...(Columns));
        (QTest::newRow(name) << ... << cells);
    }
};
