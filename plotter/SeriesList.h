// The legend: the series with their lines and newest values, each to be shown or hidden.
#pragma once

#include <QListWidget>
#include <functional>

class PlotView;
class Recording;

class SeriesList : public QListWidget {
  public:
    // `onShown` is called when the user ticks or unticks a series.
    explicit SeriesList(std::function<void(size_t series, bool shown)> onShown);
    void Refresh(const Recording& recording, const PlotView& view);

  private:
    void AddRows(const Recording& recording, const PlotView& view);
};
