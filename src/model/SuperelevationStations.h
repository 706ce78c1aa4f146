#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/UnsetDouble.h"

namespace jlandxml
{

/// The decimals of a station of a superelevation.
inline constexpr int SUPERELEVATION_DIGITS = 8;

/// One station (metres) of a superelevation: a child of `Superelevation` whose text is the station.
class SuperelevationStation : public FViewLandXMLBase
{
  public:
    void Clear() override { value = UNSET_DOUBLE; }

    /// Reads the element's text; what isn't numeric, and an empty text, is 0. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// The stations that the host gives stay as they are. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    double value = UNSET_DOUBLE;

  protected:
    SuperelevationStation() = default;
    SuperelevationStation(const SuperelevationStation&) = default;
    SuperelevationStation& operator=(const SuperelevationStation&) = default;
    ~SuperelevationStation() = default;

    /// Sets the text of the child of this name under the `Superelevation`, which gets one if it has none. False if it
    /// can't be added.
    bool WriteStation(const WcXmNode& node) const;
};

/// `BeginRunoutSta`: where the normal crown begins to turn.
class FViewBeginRonoutSta final : public SuperelevationStation
{
  public:
    const wchar_t* GetElementName() const override { return L"BeginRunoutSta"; }
};

/// `BeginRunoffSta`: where the adverse crown is gone.
class FViewBeginRunoffSta final : public SuperelevationStation
{
  public:
    const wchar_t* GetElementName() const override { return L"BeginRunoffSta"; }
};

/// `StartofRunoutSta`: where the adverse crown begins to come back.
class FViewStartofRunoutSta final : public SuperelevationStation
{
  public:
    const wchar_t* GetElementName() const override { return L"StartofRunoutSta"; }
    bool WriteElement(const WcXmNode& node) override { return WriteStation(node); }
};

/// `EndofRunoutSta`: where the normal crown is back.
class FViewEndOfRonoutSta final : public SuperelevationStation
{
  public:
    const wchar_t* GetElementName() const override { return L"EndofRunoutSta"; }
    bool WriteElement(const WcXmNode& node) override { return WriteStation(node); }
};

/// `FullSuperSta`: where the full superelevation begins.
class FViewFullSuperSta final : public SuperelevationStation
{
  public:
    const wchar_t* GetElementName() const override { return L"FullSuperSta"; }
};

/// `RunoffSta`: where the full superelevation ends.
class FViewRunoffSta final : public SuperelevationStation
{
  public:
    const wchar_t* GetElementName() const override { return L"RunoffSta"; }
};

/// `AdverseSE`: whether the outer lane goes through the adverse crown.
class FViewAdverseSE final : public FViewLandXMLBase
{
  public:
    void Clear() override { adverse = true; }
    const wchar_t* GetElementName() const override { return L"AdverseSE"; }

    /// Takes "adverse" and "non-adverse"; any other text counts as adverse. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Sets the text of the child under the `Superelevation`, which gets one if it has none. False if it can't be
    /// added.
    bool WriteElement(const WcXmNode& node) override;

    bool adverse = true;
};

} // namespace jlandxml
