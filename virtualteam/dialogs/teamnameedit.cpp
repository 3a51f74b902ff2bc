#include "virtualteam/dialogs/teamnameedit.h"

#include "controls/skin.h"
#include "virtualteam/teamrecords.h"

#include <QValidator>

namespace {

// Takes everything but lone surrogates, and control characters as blanks.
class WholeCharacters : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int &cursor) const override
    {
        for (int i = text.size() - 1; i >= 0; --i) {
            if (i > 0 && text.at(i).isLowSurrogate() && text.at(i - 1).isHighSurrogate()) {
                --i;
            } else if (text.at(i).isSurrogate()) {
                text.remove(i, 1);
                cursor -= cursor > i ? 1 : 0;
            } else if (text.at(i).category() == QChar::Other_Control) {
                text[i] = QLatin1Char(' ');
            }
        }
        return Acceptable;
    }
};

} // namespace

TeamNameEdit::TeamNameEdit(QWidget *parent) : QLineEdit(parent)
{
    setObjectName(QStringLiteral("teamNameEdit"));
    setMaxLength(TeamLimits::Name);
    setValidator(new WholeCharacters(this));
    setPlaceholderText(QString::fromUtf8("16字以内"));
    setFont(skinFont(13));
    followSkin(this);
}
