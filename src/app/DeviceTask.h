#pragma once

#include <QString>

#include <functional>

class QWidget;

// Runs one blocking device exchange on a worker thread while the interface keeps painting;
// a progress dialog with the given text appears when the exchange takes longer than
// kProgressDelayMs. Without a GUI the work simply runs in place.
class DeviceTask
{
public:
    static constexpr int kProgressDelayMs = 500;

    static void run(const QString& label, const std::function<void()>& work,
                    QWidget* parent = nullptr);
};
