#pragma once

#include <QtTest>

#include <initializer_list>

// Text columns for a data-driven test and their rows, each row led by its name:
// addRows({"setting", "stored"}, {{"row name", "<A/>", "a"}, ...}).
inline void addRows(std::initializer_list<const char*> columns,
                    std::initializer_list<std::initializer_list<const char*>> rows)
{
    for (const char* column : columns)
        QTest::addColumn<QString>(column);
    for (const auto& row : rows) {
        QTestData& data = QTest::newRow(*row.begin());
        for (auto field = row.begin() + 1; field != row.end(); ++field)
            data << QString::fromUtf8(*field);
    }
}
