// The syntax index beside a text.
#pragma once

#include <QDockWidget>
#include <QTextBrowser>

class HelpPane : public QDockWidget {
  public:
    // `folder` holds the pages.
    HelpPane(const QString& folder, QWidget* window);

    // Shows a place of the index, "data.htm#dim"; its first page for none.
    void ShowPlace(const QString& place);
    const QTextBrowser& Page() const { return *page; }

  private:
    QString folder;
    QTextBrowser* page;
};
