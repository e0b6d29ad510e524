#pragma once

#include <QtTest>

#include <array>
#include <initializer_list>
#include <tuple>
#include <utility>

// Shorthand for data-driven tests: the columns are declared once, typed, and a test fetches
// its whole row at once instead of one QFETCH per column.
namespace Rows {

inline QList<QByteArray>& names()
{
    static QList<QByteArray> columns;
    return columns;
}

// The current row's field in column `index`.
template <class T>
T field(std::size_t index)
{
    return *static_cast<T*>(QTest::qData(names().at(qsizetype(index)), qMetaTypeId<T>()));
}

template <class... T, std::size_t... I>
std::tuple<T...> fetch(std::index_sequence<I...>)
{
    return std::tuple<T...>(field<T>(I)...);
}

template <std::size_t... I>
std::array<QString, sizeof...(I)> texts(std::index_sequence<I...>)
{
    return {field<QString>(I)...};
}

} // namespace Rows

// columns<int, QString>({"count", "text"}) declares a test's columns in order.
template <class... T>
void columns(std::initializer_list<const char*> names)
{
    Rows::names().clear();
    for (const char* name : names)
        Rows::names().append(name);
    auto name = names.begin();
    (QTest::addColumn<T>(*name++), ...);
}

// The current row: const auto [count, text] = fetch<int, QString>().
template <class... T>
std::tuple<T...> fetch()
{
    return Rows::fetch<T...>(std::index_sequence_for<T...>());
}

// The current row of a test whose columns are all text: const auto [a, b] = texts<2>().
template <std::size_t N>
std::array<QString, N> texts()
{
    return Rows::texts(std::make_index_sequence<N>());
}

// Text columns and their rows, each row led by its name:
// addRows({"setting", "stored"}, {{"row name", "<A/>", "a"}, ...}).
inline void addRows(std::initializer_list<const char*> names,
                    std::initializer_list<std::initializer_list<const char*>> rows)
{
    Rows::names().clear();
    for (const char* name : names) {
        Rows::names().append(name);
        QTest::addColumn<QString>(name);
    }
    for (const auto& row : rows) {
        QTestData& data = QTest::newRow(*row.begin());
        for (auto field = row.begin() + 1; field != row.end(); ++field)
            data << QString::fromUtf8(*field);
    }
}
