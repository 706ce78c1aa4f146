#pragma once

#include "base/Exceptions.h"
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
};

} // namespace jlandxml
