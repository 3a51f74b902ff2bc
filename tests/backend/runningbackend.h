// A back end that runs inside the test, with a data folder of its own.
#pragma once

#include "backend/backend.h"
#include "tests/backend/webclient.h"

#include <QTemporaryDir>

class RunningBackEnd
{
public:
    explicit RunningBackEnd(BackEndOptions options = {})
    {
        options.dataFolder = m_folder.path();
        m_options = options;
        restart();
    }

    // As after the end of the program: a new object on the same folder.
    void restart()
    {
        m_backEnd.reset();
        m_backEnd = std::make_unique<BackEnd>(m_options);
        QString problem;
        if (!m_backEnd->start(&problem))
            qFatal("%s", qPrintable(problem));
    }

    QString folder() const { return m_folder.path(); }
    BackEnd &operator*() { return *m_backEnd; }
    BackEnd *operator->() { return m_backEnd.get(); }
    Answer control(const std::string &command, const std::string &json)
    {
        return WebClient(m_backEnd->controlPort()).postJson("/_ctl/" + command, json);
    }

private:
    QTemporaryDir m_folder;
    BackEndOptions m_options;
    std::unique_ptr<BackEnd> m_backEnd;
};

inline BackEndOptions withLevers()
{
    BackEndOptions options;
    options.controlPort = 0;
    return options;
}
