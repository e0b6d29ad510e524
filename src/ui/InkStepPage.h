#pragma once

#include <QWizardPage>

#include <functional>

class QLabel;
class QVBoxLayout;

// One page of an ink maintenance wizard: an explanation, an optional picture, and optionally
// an action that leaving the page forward carries out. The wizard only moves on when the
// action succeeded; otherwise the page says what failed and stays, so the same button tries
// again and Cancel closes.
class InkStepPage : public QWizardPage
{
    Q_OBJECT

public:
    // Empty when the action succeeded; otherwise what failed, in plain words.
    using Action = std::function<QString()>;

    InkStepPage(const QString& title, const QString& text, const QString& picture = QString(),
                QWidget* parent = nullptr);

    // Makes the page a commit page whose forward button, labelled `label`, runs `action`.
    void setAction(const QString& label, Action action);
    // Where a subclass or the wizard adds its own controls, below the text.
    QVBoxLayout* body() const { return bodyLayout; }
    QString failure() const;

    bool validatePage() override;

private:
    void showFailure(const QString& reason);

    QVBoxLayout* bodyLayout;
    QLabel* errorLabel;
    Action action;
};
