// UTF-8 for settings files. QSettings encodes a text one code unit at a time, so
// that the codec of the toolkit loses every character of two units, and a file
// loses all it has of them whenever it is rewritten. This codec waits for the
// second unit.
#pragma once

#include <QTextCodec>

class IniCodec : public QTextCodec
{
public:
    static QTextCodec *instance(); // owned by the toolkit

    QByteArray name() const override;
    int mibEnum() const override;

protected:
    QString convertToUnicode(const char *in, int length, ConverterState *state) const override;
    QByteArray convertFromUnicode(const QChar *in, int length,
                                  ConverterState *state) const override;

private:
    IniCodec() = default;
};
