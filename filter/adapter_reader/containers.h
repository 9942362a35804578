// Elements that open and close containers. All return a callback result.
#pragma once

struct _handlerObject;
class CAdapterReader;

namespace egfsvg {

int openSvg(CAdapterReader& adapter, _handlerObject& object);
int openGroup(CAdapterReader& adapter, _handlerObject& object);
int closeContainer(CAdapterReader& adapter, _handlerObject& object);

}  // namespace egfsvg
