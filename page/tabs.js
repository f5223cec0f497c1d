// The inspector's tabs.

const tabs = [...document.querySelectorAll("[role=tab]")];
const panel = (tab) => document.getElementById(tab.getAttribute("aria-controls"));

function choose(chosen) {
  for (const tab of tabs) {
    tab.setAttribute("aria-selected", String(tab === chosen));
    tab.tabIndex = tab === chosen ? 0 : -1;
    panel(tab).hidden = tab !== chosen;
  }
  panel(chosen).dispatchEvent(new CustomEvent("shown"));
}

export function start() {
  for (const [index, tab] of tabs.entries()) {
    tab.addEventListener("click", () => choose(tab));
    tab.addEventListener("keydown", (event) => {
      const to = { ArrowRight: index + 1, ArrowLeft: index - 1 + tabs.length, Home: 0, End: tabs.length - 1 }[event.key];
      if (to === undefined) return;
      event.preventDefault();
      choose(tabs[to % tabs.length]);
      tabs[to % tabs.length].focus();
    });
  }
}
