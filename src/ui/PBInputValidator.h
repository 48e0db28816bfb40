// The digit rule of numeric text entries: the digits 0 to 9 alone, or nothing.
#pragma once

#include <QValidator>

class PBInputValidator : public QValidator {
    Q_OBJECT
  public:
    using QValidator::QValidator;

    State validate(QString& text, int& position) const override;
};
