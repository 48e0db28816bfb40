// The patterns of a file dialog. Pure.
#pragma once

#include <QString>
#include <QStringList>

// The toolkit's form of "Name (*.a)|*.a|Name (*.b)|*.b", one text for each pair. Several
// masks of a pair stand in it with ";" between them. "*.*" matches every file, those
// without an extension too.
QStringList ToolkitPatterns(const QString& patterns);
