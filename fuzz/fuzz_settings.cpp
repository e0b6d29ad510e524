// Arbitrary bytes through everything that reads documents the program does not control: the
// DOM helper, the capability list, the settings reader, validation, every setting's control
// (offscreen, so that the number conversions of spin boxes and sliders run on device values),
// the dependency declarations, change documents and the translator.

#include "app/Log.h"
#include "elements/ConcreteElement.h"
#include "elements/FactoryElement.h"
#include "xml/CapabilityParser.h"
#include "xml/DomParser.h"
#include "xml/ElementType.h"
#include "xml/SettingsParser.h"
#include "xml/Translator.h"

#include <QApplication>
#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QWidget>

#include <cstddef>
#include <cstdint>

namespace {

struct Walk
{
    QStringList reportable; // buttons and forms to ask change documents for
    int visited = 0;
};

bool validate(Element* element, void* data)
{
    auto* walk = static_cast<Walk*>(data);
    ++walk->visited;
    element->isValid();
    if (ElementTypes::isReportableButton(element->type()))
        walk->reportable.append(element->id());
    if (element->parentElement() && element->parentElement()->type() == etForm)
        walk->reportable.append(element->parentElement()->id());
    return true;
}

// Each setting's control is built and fed its own value, then taken down again.
bool showControl(Element* element, void* data)
{
    auto* panel = static_cast<QWidget*>(data);
    if (!element->createControl(panel))
        return true;
    if (auto* factory = qobject_cast<FactoryElement*>(element))
        factory->setControlValue(factory->current());
    element->isValid();
    element->deleteControl();
    qDeleteAll(panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
    return true;
}

// Every other setting gets a new value, so that change documents have something to say.
bool change(Element* element, void* data)
{
    auto* count = static_cast<int*>(data);
    if (auto* concrete = qobject_cast<ConcreteElement*>(element)) {
        if ((*count)++ % 2 == 0)
            concrete->valueChange(concrete->current() + QStringLiteral("1"));
    }
    return true;
}

// A "message" whose "Id" matches but that lacks "Value" stops the program on purpose; keep
// such documents away from the translator.
bool translatable(const Translator& translator)
{
    for (QDomElement message = translator.messages().firstChildElement(); !message.isNull();
         message = message.nextSiblingElement()) {
        if (!message.firstChildElement(QStringLiteral("Id")).isNull() &&
            message.firstChildElement(QStringLiteral("Value")).isNull())
            return false;
    }
    return true;
}

void exerciseSettings(const QByteArray& bytes)
{
    SettingsParser parser;
    parser.setContent(bytes);
    if (!parser.readPrinterSettings() || !parser.root())
        return;
    Walk walk;
    parser.enumerateElements(validate, &walk);
    QWidget panel;
    parser.enumerateElements(showControl, &panel);
    // Every fourth input is also the local declaration file merged in front (the fuzz runs in
    // a scratch folder).
    const bool asDependencyFile = bytes.size() % 4 == 0;
    if (asDependencyFile) {
        QFile file(QStringLiteral("dependencies.xml"));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }
    parser.readDependencies();
    if (asDependencyFile)
        QFile::remove(QStringLiteral("dependencies.xml"));
    parser.enumerateElements(validate, &walk);
    int count = 0;
    parser.enumerateElements(change, &count);
    parser.getChanges(QString());
    for (const QString& id : std::as_const(walk.reportable))
        parser.getChanges(id);
    parser.getPhoneBookDescription();

    Translator translator;
    translator.setContent(bytes);
    if (translatable(translator))
        parser.translate(translator);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    logLevel = 0;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "fuzz_settings";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv); // lives as long as the process
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    DomParser dom;
    dom.setContent(bytes);
    dom.find(QStringLiteral("root/PrinterSettingsInfo"));

    CapabilityParser capabilities;
    capabilities.setContent(bytes);
    capabilities.parse();

    exerciseSettings(bytes);
    return 0;
}
