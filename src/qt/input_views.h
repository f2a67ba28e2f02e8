#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

#include "qt/control_view.h"
#include "qt/look.h"
#include "qt/second_click.h"

namespace tabulon {

/// One line that the user writes.
class LineEditView final : public ViewOf<TextBox> {
  public:
    LineEditView(TextBox& box, ViewHost& host, QWidget* parent);

  protected:
    void SyncOwn() override;

  private:
    QLineEdit& m_edit;
    Applied<std::string> m_text;
    Applied<Font> m_font;
    Applied<int> m_maxLength;
    Applied<bool> m_marked;
};

/// Several lines that the user writes.
class TextEditView final : public ViewOf<TextBox> {
  public:
    TextEditView(TextBox& box, ViewHost& host, QWidget* parent);

  protected:
    void SyncOwn() override;

  private:
    void TakeText();

    QPlainTextEdit& m_edit;
    Applied<std::string> m_text;
    Applied<Font> m_font;
};

class ComboBoxWidget final : public Ringed<QComboBox> {
  public:
    using Ringed::Ringed;
    std::function<void()> aboutToOpen;
    void showPopup() override;

  protected:
    /// A row without room ends in an ellipsis.
    void initStyleOption(QStyleOptionComboBox* option) const override;
};

class ComboBoxView final : public ViewOf<ComboBox> {
  public:
    ComboBoxView(ComboBox& box, ViewHost& host, QWidget* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void SyncOwn() override;

  private:
    void ApplyRows();
    void TakeRow(int row);
    void TakeTopRow(int row);

    ComboBoxWidget& m_box;
    SecondClick m_secondClick;
    Applied<std::vector<ListRow>> m_rows;
    Applied<int> m_row;
    Applied<int> m_topRow;
    Applied<Font> m_font;
};

class ListBoxView final : public ViewOf<ListBox> {
  public:
    ListBoxView(ListBox& list, ViewHost& host, QWidget* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void SyncOwn() override;

  private:
    void ApplyRows();
    void TakeSelection();
    bool SelectsFocusedRow(int key);

    QListWidget& m_list;
    Applied<std::vector<ListRow>> m_rows;
    Applied<int> m_row;
    Applied<Font> m_font;
};

}  // namespace tabulon
