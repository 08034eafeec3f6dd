#pragma once

#include <QTextBrowser>
#include <QTimer>
#include <filesystem>
#include <string>

namespace kalvo {

/// A chapter of the manual on a screen. Links are told, not followed; pictures are read when they
/// come into sight, and get smaller with the window.
class ManualBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit ManualBrowser(QWidget* parent = nullptr);

  /// Shows another text from its beginning.
  void ShowText(const std::string& markdown, const std::filesystem::path& folder);
  /// Brings the heading to the top, and the first word marked below it in sight.
  void TurnTo(const QString& anchor);
  void ScrollTo(int place);
  /// Marks every word that has one of these in it, by SearchKey().
  void MarkWords(const std::string& typed);

  QVariant loadResource(int type, const QUrl& name) override;

 Q_SIGNALS:
  void Scrolled(int place);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  /// Rows of a table are copied as a sheet takes them.
  [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;

 private:
  [[nodiscard]] int PictureRoom() const;
  void SetText();
  void BringMarkInSight();
  void NoteTop();
  void SetAnewAtItsPlace();

  std::string markdown_;
  std::filesystem::path folder_;
  std::string marked_;
  int room_ = 0;  ///< that the pictures on show were made for
  int top_ = 0;   ///< what was at the top before the window changed, by its place in the text
  bool setting_ = false;
  QTimer resized_;
};

}  // namespace kalvo
