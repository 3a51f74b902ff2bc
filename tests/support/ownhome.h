// A home of the tests' own: they clear the desktop, and write where a client's data lie.
#pragma once

#include <QString>

// For as long as the object lives, this process finds the user's folders and settings below
// the given folder; to be made before anything asks for one.
class OwnHome
{
public:
    explicit OwnHome(const QString &folder);
    ~OwnHome();
    OwnHome(const OwnHome &) = delete;
    OwnHome &operator=(const OwnHome &) = delete;

    // Without it no test may run: it would change what a user has.
    bool isInForce() const;

private:
    const QString m_folder;
};
