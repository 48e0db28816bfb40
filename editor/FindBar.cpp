#include "editor/FindBar.h"

#include <Qsci/qsciscintilla.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <functional>

namespace {

constexpr int kShortestEntry = 120;  // pixels

QLineEdit* Entry(const char* caption, QBoxLayout* row, QWidget* bar) {
    auto* entry = new QLineEdit(bar);
    entry->setMinimumWidth(kShortestEntry);
    auto* label = new QLabel(caption, bar);
    label->setBuddy(entry);
    row->addWidget(label);
    row->addWidget(entry, 1);
    return entry;
}

void Button(const char* caption, QBoxLayout* row, const std::function<void()>& act) {
    auto* button = new QPushButton(caption);
    row->addWidget(button);
    QObject::connect(button, &QPushButton::clicked, button, act);
}

QCheckBox* Choice(const char* caption, QBoxLayout* row) {
    auto* box = new QCheckBox(caption);
    row->addWidget(box);
    return box;
}

}  // namespace

FindBar::FindBar(QsciScintilla* searched, QWidget* parent)
    : QWidget(parent), text(searched), verdict(new QLabel(this)), replaceRow(new QWidget(this)) {
    AddRows();
    hide();
}

void FindBar::AddRows() {
    auto* column = new QVBoxLayout(this);
    auto* findRow = new QHBoxLayout;
    auto* row = new QHBoxLayout(replaceRow);
    column->setContentsMargins(4, 2, 4, 2);
    row->setContentsMargins(0, 0, 0, 0);
    column->addLayout(findRow);
    column->addWidget(replaceRow);
    words = Entry("Fin&d", findRow, this);
    Button("&Next", findRow, [this] { Find(false); });
    Button("&Previous", findRow, [this] { Find(true); });
    matchCase = Choice("&Case", findRow);
    wholeWord = Choice("&Whole word", findRow);
    pattern = Choice("Re&gular expression", findRow);
    by = Entry("Replace b&y", row, replaceRow);
    Button("&Replace", row, [this] { Replace(); });
    Button("Replace &all", row, [this] { ReplaceEverywhere(); });
    findRow->addWidget(verdict);
    connect(words, &QLineEdit::returnPressed, this, [this] { Find(false); });
    connect(by, &QLineEdit::returnPressed, this, [this] { Replace(); });
}

void FindBar::Ask(bool replacing) {
    const QString selected = text->selectedText();
    if (!selected.isEmpty() && !selected.contains('\n') && !selected.contains('\r')) {
        words->setText(selected);
    }
    replaceRow->setVisible(replacing);
    show();
    words->setFocus();
    words->selectAll();
}

SearchWish FindBar::Wish() const {
    return {words->text(), matchCase->isChecked(), wholeWord->isChecked(), pattern->isChecked()};
}

void FindBar::Tell(bool found) {
    const bool bad = pattern->isChecked() && !QRegularExpression(words->text()).isValid();
    verdict->setText(found ? "" : bad ? "not a regular expression" : "not found");
}

void FindBar::Find(bool backwards) {
    if (words->text().isEmpty()) return Ask(false);
    Tell(FindNext(*text, Wish(), backwards));
}

void FindBar::Replace() {
    if (!words->text().isEmpty()) Tell(ReplaceNext(*text, Wish(), by->text()));
}

void FindBar::ReplaceEverywhere() {
    if (words->text().isEmpty()) return;
    verdict->setText(QString("%1 replaced").arg(ReplaceAll(*text, Wish(), by->text())));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    hide();
    text->setFocus();
}
