#pragma once

#include <QWidget>

namespace kalvo {

struct PipeView {
  QString from, to;            ///< names of the nodes
  QString from_note, to_note;  ///< below them: "αρχή", "τέλος"
  QString caption;             ///< below the pipe: "7,6 m  ·  1\"  ·  1.210,0 Lit/h"
};

/// One section as a pipe between its two nodes, with the direction of flow.
class PipePicture : public QWidget {
  Q_OBJECT

 public:
  explicit PipePicture(QWidget* parent = nullptr);

  void SetPipe(const PipeView& pipe);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawNode(QPainter& painter, const QPointF& centre, const QString& name,
                const QString& note) const;

  PipeView pipe_;
};

/// The pump of a network between its two pipes.
class PumpPicture : public QWidget {
  Q_OBJECT

 public:
  explicit PumpPicture(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kalvo
