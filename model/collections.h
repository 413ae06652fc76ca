#pragma once

#include <string>
#include <string_view>

#include "model/keyed_list.h"
#include "model/kvTamClass.h"
#include "model/kvTamROI.h"
#include "model/kvTamSample.h"

/// The three lists of a sample set. Each `Add` appends a new record under the key, or without one when the
/// key is empty, and returns it. RuntimeError duplicateKey when the key is in use; the list is then
/// unchanged.
namespace model {

class kvtamSamples : public KeyedList<kvTamSample> {
  public:
    kvTamSample& Add(std::string FileName, std::string description, std::string_view sKey = {});
};

class kvtamClasses : public KeyedList<kvTamClass> {
  public:
    /// Its number is its position now; it keeps it when a class before it is removed.
    kvTamClass& Add(std::string Name, std::string_view sKey = {});
};

class kvtamROIs : public KeyedList<kvTamROI> {
  public:
    /// An empty region, whose fields the caller sets.
    kvTamROI& Add(std::string_view sKey = {});
};

}  // namespace model
