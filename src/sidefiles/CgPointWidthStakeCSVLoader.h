#pragma once

#include "base/Exceptions.h"
#include "model/FViewCgPoint.h"
#include "sidefiles/CSVLoaderBase.h"

namespace jlandxml
{

/// The file of width stakes could not be taken into the model.
class WidthStakeCSVLoadException : public CException
{
  public:
    using CException::CException;
};

/// Reads the width stakes of a route and gathers them by their group.
class CgPointWidthStakeCSVLoader final : public CSVLoaderBase
{
  public:
    bool Load(const std::wstring& path) override;

  private:
    void ReadStakes();
    FViewCgPointWidthStake MakeStake(const CsvRow& row) const;
};

} // namespace jlandxml
