// Loads the engine of the search outside of a browser, with an index in a directory.
import {readFileSync} from "node:fs";
import {join} from "node:path";
import vm from "node:vm";

const script = new URL("../../share/site/search.js", import.meta.url);

export function engine(index) {
  const context = vm.createContext({});
  vm.runInContext(readFileSync(script, "utf8"), context);
  const search = vm.runInContext("tavidocSearch", context);
  search.requested = [];
  search.request = (name, failed) => {
    search.requested.push(name);
    let text;
    try {
      text = readFileSync(join(index, name + ".js"), "utf8");
    } catch {
      failed();
      return;
    }
    vm.runInContext(text, context);
  };
  return search;
}

export async function found(search, query, limit = 12) {
  const rows = [];
  await search.search(query, limit, (batch, isNearest) => rows.push(...batch.map(row => ({...row, isNearest}))));
  return rows;
}
