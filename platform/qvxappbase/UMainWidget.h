#pragma once

#include <QWidget>

class USoftKey;

// A main window of the phone: a page of the screen with a title bar, a content widget and a soft key bar.
//
// The maker owns the page and deletes it. show() and close() hide those of QWidget because a page is shown on
// the one screen and never as a window of the desktop.
class UMainWidget : public QWidget
{
    Q_OBJECT

public:
    explicit UMainWidget(QWidget* parent = nullptr, const char* name = nullptr, int flags = 0);
    ~UMainWidget() override;

    void setMainWidgetTitle(const QString& title);
    QString mainWidgetTitle() const { return mTitle; }

    // Both become children of the page. The content gets all keys that are no soft keys.
    void setContentWidget(QWidget* content);
    void setCSTWidget(USoftKey* softKey);

    // Puts the page on top of the screen.
    void show();
    // Takes the page off the screen and emits nothing; with `alsoDelete` deletes it, too. Returns true.
    bool close(bool alsoDelete = false);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void arrange();

    QString mTitle;
    QWidget* mContent = nullptr;
    USoftKey* mSoftKeyBar = nullptr;
};
