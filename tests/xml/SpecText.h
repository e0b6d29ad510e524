#pragma once

#include "xml/SettingsParser.h"

#include <QString>

#include <memory>

// Small settings specifications for the tests: settings written as XML text and wrapped in
// "root/<rootTag>".
namespace SpecText {

inline QString wrap(const QString& settings, const QString& rootTag = "PrinterSettingsInfo",
                    const QString& extra = QString())
{
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root><%1>%2</%1>%3</root>")
        .arg(rootTag, settings, extra);
}

// A parser holding the document, with the tree read.
inline std::unique_ptr<SettingsParser> read(const QString& settings,
                                            const QString& rootTag = "PrinterSettingsInfo",
                                            const QString& extra = QString())
{
    auto parser = std::make_unique<SettingsParser>();
    parser->setContent(wrap(settings, rootTag, extra));
    parser->readPrinterSettings();
    return parser;
}

} // namespace SpecText
