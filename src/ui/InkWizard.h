#pragma once

#include "io/InkSender.h"

#include <QWizard>

class Configurator;
class InkStepPage;

// Base of the ink maintenance wizards. Knows how a press reaches the printer: the button
// kinds that report their press do so in a change document through the settings channel,
// the others write command blocks to the data channel. Every exchange runs off the
// interface thread, and every failure comes back as a sentence for the page to show.
class InkWizard : public QWizard
{
    Q_OBJECT

public:
    InkWizard(Configurator* configurator, const QString& buttonId, const QString& title,
              QWidget* parent);

protected:
    // The button's kind reports its press as "PRESSED" in a change document.
    bool pressReported() const;
    // Each returns an empty string on success, or what failed.
    QString press();
    QString send(const QByteArray& block);
    QString sendAndWait(const QByteArray& block, const QString& progress);

    // The opening page: load paper, then `label` runs `action`.
    InkStepPage* addPaperPage(const QString& title, const QString& text, const QString& label,
                              const std::function<QString()>& action);
    InkStepPage* addFinalPage(const QString& title, const QString& text);

private:
    QString runSender(const QString& progress,
                      const std::function<InkSender::Outcome(const InkSender&)>& call);
    static QString describe(InkSender::Outcome outcome);

    Configurator* configurator;
    QString buttonId;
};
