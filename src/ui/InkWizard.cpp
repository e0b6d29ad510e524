#include "ui/InkWizard.h"

#include "app/Configurator.h"
#include "app/DeviceTask.h"
#include "elements/Element.h"
#include "ui/InkStepPage.h"
#include "xml/ElementType.h"

InkWizard::InkWizard(Configurator* configurator, const QString& buttonId, const QString& title,
                     QWidget* parent)
    : QWizard(parent)
    , configurator(configurator)
    , buttonId(buttonId)
{
    setWindowTitle(title);
    setWizardStyle(QWizard::ClassicStyle);
    setOption(QWizard::NoBackButtonOnStartPage);
    setOption(QWizard::NoCancelButtonOnLastPage); // nothing left to cancel: Finish closes
}

bool InkWizard::pressReported() const
{
    const Element* button = configurator->parser().findElement(buttonId);
    return button && ElementTypes::isReportableButton(button->type());
}

QString InkWizard::press()
{
    if (configurator->applySettings(buttonId))
        return QString();
    return tr("The printer did not accept the request, or could not be reached. Check that it "
              "is switched on and connected.");
}

QString InkWizard::send(const QByteArray& block)
{
    return runSender(tr("Sending the command to the printer..."),
                     [&block](const InkSender& sender) { return sender.send(block); });
}

QString InkWizard::sendAndWait(const QByteArray& block, const QString& progress)
{
    return runSender(progress,
                     [&block](const InkSender& sender) { return sender.sendAndWait(block); });
}

QString InkWizard::runSender(const QString& progress,
                             const std::function<InkSender::Outcome(const InkSender&)>& call)
{
    const InkSender sender(configurator->devicePath());
    InkSender::Outcome outcome = InkSender::Outcome::CannotOpen;
    DeviceTask::run(
        progress, [&outcome, &sender, &call] { outcome = call(sender); }, this);
    return describe(outcome);
}

QString InkWizard::describe(InkSender::Outcome outcome)
{
    switch (outcome) {
    case InkSender::Outcome::Sent:
        return QString();
    case InkSender::Outcome::CannotOpen:
        return tr("The printer could not be opened. It may have been switched off or "
                  "disconnected.");
    case InkSender::Outcome::WriteFailed:
        return tr("The printer did not take the command in time.");
    case InkSender::Outcome::NoReply:
        return tr("The printer did not report the result of the scan.");
    case InkSender::Outcome::Refused:
        return tr("The printer could not read the alignment page. Check that it lies face "
                  "down on the glass, in the marked corner.");
    }
    return tr("Unknown failure.");
}

InkStepPage* InkWizard::addPaperPage(const QString& title, const QString& text,
                                     const QString& label, const std::function<QString()>& action)
{
    auto* page = new InkStepPage(
        title,
        text + QStringLiteral("\n\n") +
            tr("Make sure that plain white paper (Letter or A4) is loaded in the input tray."),
        QStringLiteral(":/images/paper_load.png"), this);
    page->setAction(label, action);
    addPage(page);
    return page;
}

InkStepPage* InkWizard::addFinalPage(const QString& title, const QString& text)
{
    auto* page = new InkStepPage(title, text, QString(), this);
    page->setFinalPage(true);
    addPage(page);
    return page;
}
