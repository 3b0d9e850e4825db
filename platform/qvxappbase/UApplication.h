#pragma once

#include <QApplication>

#include <memory>

class FailureNotice;
class PhoneScreen;

// The application object: Qt's, with the phone screen, its look and its fixed texts set up, and the phone's
// request to return to the idle screen.
class UApplication : public QApplication
{
    Q_OBJECT

public:
    enum Type { GuiClient = 1 };

    // `argc` and `argv` must outlive the object: Qt keeps looking at them. Reads VISTANE_SCREEN. Where the program runs
    // already, brings that one to the front and ends the process with status 0.
    UApplication(int& argc, char** argv, Type type);
    ~UApplication() override;

    static UApplication* instance();

    // To be called before the first page is shown. On one screen of pages none stands out; but what was asked of the
    // program up to now, when there was nothing to close, is dropped.
    void setMainWidget(QWidget* widget);

    // Makes the event loop look at its timers and events at once.
    void wakeUpGuiThread();

    // For a program that is about to stand still, and that stood still. The first paints the screen now; after the second,
    // no tap and of the keys only the red one counts until the event loop has caught up: what a person did meanwhile was
    // meant for what was on the screen before.
    void repaintScreen();
    void dropEarlyInput();

    // Emits askReturnToIdle(reason) from the event loop.
    void returnToIdleLater(int reason);

signals:
    // The phone wants its idle screen back: every window of the program is to close. `reason` is the phone's.
    void askReturnToIdle(int reason);

private:
    void loadFixedTexts();

    std::unique_ptr<PhoneScreen> mScreen;
    std::unique_ptr<FailureNotice> mFailures;
};
