// What the panels of the event monitor have in common: a table that keeps up with
// what is recorded unless it is paused, a line to filter it, clearing and copying,
// and how many rows there are.
#pragma once

#include <QTimer>
#include <QVector>
#include <QWidget>

class QAction;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QSplitter;
class QTableView;
class RecordModel;
class WordFilter;

class MonitorPanel : public QWidget
{
    Q_OBJECT

public:
    QTableView *table() const { return m_table; }

protected:
    // `prefix` begins the objects' names. `widest` holds one text for each column but
    // the last, which takes the rest of the width. The subclass calls retranslate()
    // when it is complete.
    MonitorPanel(const QString &prefix, RecordModel *model, WordFilter *filter,
                 const QStringList &widest, QWidget *parent);

    // To be called when the model has been told of a record.
    void recorded();
    // More to filter by, and more that can be done.
    void addFilter(QWidget *filter, int stretch = 0);
    QAction *addAction();
    // An action on the chosen rows, which the table offers, too.
    QAction *addAction(const QKeySequence &keys);
    // Holds the table, and what the subclass puts beside it.
    QSplitter *splitter() const { return m_splitter; }

    // The chosen rows of the model, in its order.
    QVector<int> chosenRows() const;
    // Takes over what the lines say when nobody has typed for a moment.
    void filterSoon();
    virtual void applyFilter();
    virtual QString countText(int shown, int all) const = 0;
    void updateState();
    virtual void retranslate();

    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void prepareTable(const QStringList &widest);
    void flush();

    RecordModel *m_model;
    WordFilter *m_filter;
    QSplitter *m_splitter;
    QTableView *m_table;
    QLineEdit *m_text;
    QLabel *m_state;
    QHBoxLayout *m_filters;
    QHBoxLayout *m_buttons;
    QAction *m_pause;
    QAction *m_clear;
    QAction *m_copy;
    QTimer m_flushTimer;
    QTimer m_filterTimer;
};
