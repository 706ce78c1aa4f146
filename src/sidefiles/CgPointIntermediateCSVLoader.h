#pragma once

#include "base/Exceptions.h"
#include "model/FViewCgPoint.h"
#include "sidefiles/CSVLoaderBase.h"

namespace jlandxml
{

/// The file of intermediate points could not be taken into the model.
class IntermediateCSVLoadException : public CException
{
  public:
    using CException::CException;
};

/// Reads the intermediate points of a route, and the name of its alignment, which the route's other files go by.
class CgPointIntermediateCSVLoader final : public CSVLoaderBase
{
  public:
    bool Load(const std::wstring& path) override;

  private:
    void ReadPoints();
    void WarnOfRouteName(const CsvRow& row) const;
    FViewCgPointIntermediate MakePoint(const CsvRow& row) const;
};

} // namespace jlandxml
