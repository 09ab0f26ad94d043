#include "zerbal-pack/map_netcdf.h"

#include <utility>

#include <fmt/format.h>
#include <netcdf.h>

#include "zerbal-pack/map_source.h"

namespace zerbal::pack {

NetcdfFile::NetcdfFile(std::filesystem::path file) : file_(std::move(file)) {
  const int status = nc_open(file_.string().c_str(), NC_NOWRITE, &id_);
  if (status != NC_NOERR)
    Fail(fmt::format("it cannot be opened as a netCDF file ({})", nc_strerror(status)));
}

NetcdfFile::~NetcdfFile() {
  nc_close(id_);
}

void NetcdfFile::Fail(const std::string& reason) const {
  throw MapSourceError(fmt::format("The map source {} cannot be used: {}.", file_.string(), reason));
}

void NetcdfFile::Check(int status, const char* name) const {
  if (status != NC_NOERR)
    Fail(fmt::format("reading \"{}\" failed ({})", name, nc_strerror(status)));
}

std::size_t NetcdfFile::Length(const char* name) const {
  int variable = 0;
  int dimensions = 0;
  int dimension = 0;
  std::size_t length = 0;
  Check(nc_inq_varid(id_, name, &variable), name);
  Check(nc_inq_varndims(id_, variable, &dimensions), name);
  if (dimensions != 1)
    Fail(fmt::format("\"{}\" is not a list", name));
  Check(nc_inq_vardimid(id_, variable, &dimension), name);
  Check(nc_inq_dimlen(id_, dimension, &length), name);
  return length;
}

int NetcdfFile::Variable(const char* name, std::size_t count) const {
  const std::size_t length = Length(name);
  if (length != count)
    Fail(fmt::format("\"{}\" has {} values where {} are needed", name, length, count));
  int variable = 0;
  Check(nc_inq_varid(id_, name, &variable), name);
  return variable;
}

std::vector<std::int32_t> NetcdfFile::Ints(const char* name, std::size_t count) const {
  const int variable = Variable(name, count);
  std::vector<std::int32_t> values(count);
  Check(nc_get_var_int(id_, variable, values.data()), name);
  return values;
}

std::vector<double> NetcdfFile::Doubles(const char* name, std::size_t count) const {
  const int variable = Variable(name, count);
  std::vector<double> values(count);
  Check(nc_get_var_double(id_, variable, values.data()), name);
  return values;
}

std::vector<std::uint16_t> NetcdfFile::Offsets(const char* name, std::size_t count) const {
  const int variable = Variable(name, count);
  std::vector<std::int16_t> stored(count);
  Check(nc_get_var_short(id_, variable, stored.data()), name);
  return {stored.begin(), stored.end()};
}

}  // namespace zerbal::pack
