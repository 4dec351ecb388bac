#pragma once

#include "model/qanimations.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QString>
#include <QStringList>

#include <memory>

/**
 * What the animation tests share: an AIR document with its model, a
 * description of everything the model knows (rows, links and values of
 * every line) for comparisons with a model read fresh from the same text,
 * and a count of actions, frames and boxes made from the text alone.
 */
namespace animkit {

/// A text document of an AIR file and the model on it.
struct Air
{
    Air();
    explicit Air(const QString& text);
    ~Air();

    /// Replaces the text as loading does: counts and indices stay as written.
    void load(const QString& text);
    QString text() const;
    QString line(int number) const;
    QAnimationFrame* frameAt(int line) const;

    std::unique_ptr<QSyntaxTextEditor> editor;
    std::unique_ptr<QAnimations> model;
};

/// A frame's values: "group,index x,y time flip blend/source/destination scaleX,scaleY angle".
QString frameFields(const QAnimationFrame* frame);
/// One line per element of the model and one per row, in text order.
QStringList describe(const QAnimations& model);
/// The description of a model read fresh from `text`.
QStringList describeFresh(const QString& text);

/// Actions, frames in actions and boxes of those frames, counted in the text
/// with patterns of its own, the way an author would grep the file.
struct PlainCount
{
    int actions = 0;
    int frames = 0;
    int boxes = 0;
};
PlainCount plainCount(const QString& text);
/// The same totals as the model has them.
PlainCount modelCount(const QAnimations& model);

/// A file's bytes decoded as the document holds them (mark left out).
QString readText(const QString& path);
QByteArray readBytes(const QString& path);

} // namespace animkit
