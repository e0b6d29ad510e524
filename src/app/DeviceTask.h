#pragma once

#include "io/ExchangeProgress.h"

#include <QPointer>
#include <QString>

#include <atomic>
#include <functional>

class QProgressDialog;
class QWidget;

// Runs one blocking device exchange on a worker thread while the interface keeps painting;
// a progress dialog with the given text appears when the exchange takes longer than
// kProgressDelayMs. Work that takes the ExchangeProgress gets a Cancel button, and the dialog
// says so when the device is slow to answer. Without a GUI the work simply runs in place.
class DeviceTask : public ExchangeProgress
{
public:
    static constexpr int kProgressDelayMs = 500;

    static void run(const QString& label, const std::function<void()>& work,
                    QWidget* parent = nullptr);
    static void run(const QString& label, const std::function<void(ExchangeProgress&)>& work,
                    QWidget* parent = nullptr);

    bool cancelled() const override { return cancelRequested.load(); }
    void waitingForAnswer() override;

private:
    DeviceTask() = default;
    void execute(const QString& label, const std::function<void()>& work, bool cancellable,
                 QWidget* parent);
    void setUpDialog(QProgressDialog& progress, bool cancellable);

    QString label;
    std::atomic<bool> cancelRequested{false};
    QPointer<QProgressDialog> dialog;
};
