// webdriverio: finding elements, and asking them.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { withPhone } from './phone.mjs';
import { connect, onPhone, onSheet } from './webdriverio.mjs';

const isPicture = (base64) => Buffer.from(base64, 'base64').subarray(1, 4).toString() === 'PNG';

/// The size of a picture in dots, as its header has it.
function sizeOf(base64) {
    const header = Buffer.from(base64, 'base64');
    return [header.readUInt32BE(16), header.readUInt32BE(20)];
}

test('finds an element by every strategy', onSheet(async (driver) => {
    const sought = await driver.$('~Reminder');
    for (const selector of [
        '//XCUIElementTypeButton[@name="Reminder"]',
        '-ios predicate string:type == "XCUIElementTypeButton" AND label BEGINSWITH "Remind"',
        '-ios class chain:**/XCUIElementTypeButton[`label == "Reminder"`]',
        '=name=Reminder',
        '=Reminder',
        '*=emind',
    ]) {
        assert.equal(await driver.$(selector).elementId, sought.elementId, selector);
    }
    assert.equal(await driver.$('XCUIElementTypeScrollView').getTagName(), 'XCUIElementTypeScrollView');
    for (const strategy of ['accessibility id', 'id', 'name', 'link text', 'partial link text']) {
        const found = await driver.findElement(strategy, 'Reminder');
        assert.equal(Object.values(found)[0], sought.elementId, strategy);
    }
}));

test('finds many elements, and elements in elements', onSheet(async (driver) => {
    const rows = await driver.$$('XCUIElementTypeScrollView').getElements();
    const names = async (elements) => Promise.all(await elements.map((element) => element.getText()));

    assert.deepEqual(await names(rows[0].$$('XCUIElementTypeButton')), ['Message', 'Mail']);
    assert.deepEqual(await names(rows[1].$$('./XCUIElementTypeButton')), ['Note', 'Reminder', 'Event']);
    assert.equal(await rows[1].$('~Event').$('XCUIElementTypeStaticText').getText(), 'Event');
    assert.equal(await rows[0].$('~Event').isExisting(), false);
    assert.equal(await driver.$$('~Nobody').length, 0);
}));

test('asks an element what it is', onSheet(async (driver) => {
    const mute = await driver.$('~mute');
    assert.equal(await mute.getTagName(), 'XCUIElementTypeButton');
    assert.equal(await mute.getText(), 'mute');
    assert.equal(await mute.getAttribute('label'), 'mute');
    assert.equal(await mute.getAttribute('traits'), 'Button');
    assert.equal(await mute.getAttribute('value'), null);
    assert.equal(await mute.isEnabled(), true);
    assert.equal(await mute.isSelected(), false);
    assert.equal(await mute.isDisplayed(), true);
    assert.equal(await driver.$('~contacts').isEnabled(), false);

    const note = await driver.$('~Note');
    const { x, y } = await note.getLocation();
    const { width, height } = await note.getSize();
    assert.deepEqual({ x, y, width, height }, await driver.getElementRect(note.elementId));
    assert.deepEqual({ width, height }, { width: 76, height: 104 });
    assert.equal(await note.getLocation('x'), x);
    assert.equal(await note.getSize('height'), height);
}));

test('asks a text for its value, its placeholder and whether it is being edited', onSheet(async (driver) => {
    await driver.$('~Event').click();
    const description = await driver.$('-ios predicate string:placeholderValue == "Description"');
    assert.equal(await description.getValue(), 'Description');
    assert.equal(await description.isFocused(), false);

    await description.setValue('Lunch');

    assert.equal(await description.getValue(), 'Lunch');
    assert.equal(await description.getText(), 'Lunch');
    assert.equal(await description.isFocused(), true);
    assert.equal((await driver.getActiveElement())['element-6066-11e4-a52e-4f735466cecf'], description.elementId);
    await description.clearValue();
    assert.equal(await description.getValue(), 'Description');
}));

test('reads the screen as a tree and as pictures', onSheet(async (driver) => {
    const source = await driver.getPageSource();
    assert.match(source, /<XCUIElementTypeApplication [^>]*name="Phone"/);
    assert.match(source, /<XCUIElementTypeButton [^>]*name="Note"/);
    const tree = await driver.execute('mobile: source', { format: 'json' });
    assert.equal(tree.type, 'Application');

    assert.deepEqual(await driver.getWindowSize(), { width: 320, height: 568 });
    assert.deepEqual(sizeOf(await driver.takeScreenshot()), [640, 1136]);
    const note = await driver.takeElementScreenshot(await driver.$('~Note').elementId);
    assert.equal(isPicture(note), true);
    assert.deepEqual(sizeOf(note), [152, 208]);
    const { screenSize, scale } = await driver.execute('mobile: deviceScreenInfo');
    assert.deepEqual({ screenSize, scale }, { screenSize: { width: 320, height: 568 }, scale: 2 });
}));

test('waits for what comes late', onPhone(async (driver) => {
    await driver.updateSettings({ waitForIdleTimeout: 0 });
    const accept = driver.$('~Accept');
    const waiting = accept.waitForDisplayed();
    await driver.execute('mobile: gsmCall', { phoneNumber: '+49 89 5551234', action: 'call' });
    await waiting;
    await accept.click();
    await accept.waitForExist({ reverse: true });
    await driver.$('~mute').waitForEnabled();

    await driver.execute('mobile: tap', { x: 160, y: 50 });
    await driver.$('~Note').waitForDisplayed();
}));

test('gives up on what does not come', () => withPhone({}, async (phone) => {
    const driver = await connect(phone, { waitforTimeout: 1500 });
    await assert.rejects(driver.$('~Nobody').click(), /wasn't found/);
    await assert.rejects(driver.$('~Nobody').waitForDisplayed(), /still not displayed after 1500ms/);
    assert.equal(await driver.$('~Nobody').isDisplayed(), false);
    await driver.setTimeout({ implicit: 500 });
    assert.equal((await driver.getTimeouts()).implicit, 500);
    assert.equal(await driver.$('~Nobody').isExisting(), false);
    await driver.deleteSession();
}));

test('finds an element again whose view has gone', onSheet(async (driver) => {
    const note = await driver.$('~Note');
    const first = note.elementId;
    await driver.$('~Cancel').click();
    await note.waitForExist({ reverse: true });
    await assert.rejects(driver.getElementText(first), { name: 'stale element reference' });

    await driver.execute('mobile: tap', { x: 160, y: 50 });

    assert.equal(await note.getText(), 'Note');
    assert.notEqual(note.elementId, first);
}));

test('is told what is wrong with a selector', onPhone(async (driver) => {
    await assert.rejects(driver.$$('-ios predicate string:label ==').getElements(), { name: 'invalid selector' });
    await assert.rejects(driver.$$('-ios class chain:**/').getElements(), { name: 'invalid selector' });
    await assert.rejects(driver.$$('//*[').getElements(), { name: 'invalid selector' });
    await assert.rejects(driver.findElements('tag name', 'x'), { name: 'invalid argument' });
}));
