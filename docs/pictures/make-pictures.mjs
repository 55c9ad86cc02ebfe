// Takes the pictures of the README: a page of the manual in both themes. "convert" (imagemagick) makes them small.
// usage: ./run manual && node docs/pictures/make-pictures.mjs
import { spawnSync } from "node:child_process";
import { writeFileSync } from "node:fs";
import { chromium } from "../../tests/site/browser.mjs";

const page = new URL("../../out/manual/ring-buffer/ring_buffer_h.htm", import.meta.url).href;
const browser = await chromium();
for (const theme of ["light", "dark"]) {
    await browser.setUp(1280, { theme, height: 760 });
    await browser.call("Emulation.setScrollbarsHidden", { hidden: true });
    await browser.goto(page);
    const { data } = await browser.call("Page.captureScreenshot", { format: "png" });
    const file = new URL(`site-${theme}.png`, import.meta.url).pathname;
    writeFileSync(file, Buffer.from(data, "base64"));
    spawnSync("convert", [file, "+dither", "-colors", "64", "-strip", `PNG8:${file}`]);
}
await browser.close();
