#pragma once

#include "base/Exceptions.h"
#include "model/FViewWidening.h"
#include "sidefiles/CSVLoaderBase.h"

namespace jlandxml
{

/// The file of widening could not be taken into the model.
class WideningCSVLoadException : public CException
{
  public:
    using CException::CException;
};

/// Reads the widening of a route and puts it in the place of what its alignment has, on both sides.
class WideningCSVLoader final : public CSVLoaderBase
{
  public:
    bool Load(const std::wstring& path) override;

  private:
    void ReadWidening();
    /// Notes a side and a code that the format doesn't have.
    void WarnOfWords(const CsvRow& row, const FViewWidening& widening) const;
};

} // namespace jlandxml
